#!/usr/bin/env python3
"""Writes the fuzz targets' seed corpora (fuzz/corpus/<target>/) and dictionaries (fuzz/dict/) from the
sample printer."""
import pathlib
import re
import shutil

ROOT = pathlib.Path(__file__).resolve().parent.parent
SAMPLES = ROOT / "samples"
CORPUS = ROOT / "fuzz" / "corpus"
SMALL_MEDIA = ["TransparencyFilm", "MetallicFilmNoThreeposition", "IronOnTransfer"]  # the smallest documents


def store_sections():
    """The sample store as (key line, body lines) in file order."""
    lines = (SAMPLES / "sample-printer.reg").read_text(encoding="utf-16").splitlines()
    sections, current = [], None
    for line in lines:
        if line.startswith("["):
            current = (line, [])
            sections.append(current)
        elif current and line and not line.startswith(";"):
            current[1].append(line)
    return sections


def logical_lines(body):
    joined, pending = [], ""
    for line in body:
        pending += line.strip()
        if pending.endswith("\\"):
            pending = pending[:-1]
            continue
        joined.append(pending)
        pending = ""
    return joined


def parse_value(line):
    """(name, type letter, data) in the printer-data harness's form."""
    match = re.fullmatch(r'(@|"((?:[^"\\]|\\.)*)")=(.*)', line)
    name = "" if match.group(1) == "@" else re.sub(r"\\(.)", r"\1", match.group(2))
    data = match.group(3)
    if data.startswith('"'):
        return name, "s", re.sub(r"\\(.)", r"\1", data[1:-1])
    if data.startswith("dword:"):
        return name, "d", data[6:]
    hex_bytes = bytes(int(b, 16) for b in data.split(":", 1)[1].split(",") if b)
    if data.startswith("hex(3):") and len(hex_bytes) % 2 == 0:  # a document chunk: UTF-16 text
        return name, "b", hex_bytes.decode("utf-16-le")
    return name, "x", hex_bytes.hex()


def units(text):
    """A text field: bytes when every character fits one, else UTF-16LE after FF FE."""
    if all(ord(c) < 256 for c in text) and not any(c in "\x1e\x1f" for c in text):
        return text.encode("latin-1")
    return b"\xff\xfe" + text.encode("utf-16-le")


def media_of(sections, ids):
    """The media key's section and the sections of the media with these ids (all media when None)."""
    keys = [key for key, body in sections if any(line == '"id"="%s"' % i for line in body for i in (ids or []))]
    numbers = {key[len("[PrinterDriverData\\Media\\"):-1] for key in keys}
    chosen = []
    for key, body in sections:
        parts = key[1:-1].split("\\")
        if len(parts) == 2 or ids is None and parts[3:] != ["HMI"] or len(parts) > 2 and parts[2] in numbers:
            chosen.append((key, body))
    return chosen


def store_text(sections, header="Windows Registry Editor Version 5.00"):
    return header + "\n\n" + "\n\n".join(key + "\n" + "\n".join(body) for key, body in sections) + "\n"


def printer_data(sections):
    records = []
    for key, body in sections:
        for line in logical_lines(body):
            name, kind, data = parse_value(line)
            records.append(units(key[1:-1]) + b"\x1f" + units(name) + b"\x1f" + kind.encode() + units(data))
    return b"\x1e".join(records)


def write(target, name, data):
    folder = CORPUS / target
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(data)


def xml_tokens():
    """Element and attribute names, attribute values and keyword texts of the sample sources."""
    tokens = set()
    for path in (SAMPLES / "sample-printer").rglob("*.xml"):
        text = path.read_text(encoding="utf-8")
        tokens.update(re.findall(r"</?[\w:.-]+", text))
        tokens.update(re.findall(r'\s([\w:.-]+=)"', text))
        tokens.update('"%s"' % v for v in re.findall(r'="([A-Za-z_-]{1,24})"', text))
        tokens.update(re.findall(r">([A-Za-z_-]{1,24})</", text))
    return tokens


STORE_TOKENS = {"Windows Registry Editor Version 5.00", "REGEDIT4", "[PrinterDriverData\\Media", "\\HMI]",
                "\\HMN]", "[-", "]", "=dword:", "=hex:", "=hex(3):", "=hex(7):", "=hex(b):", "=-", "@=", ",\\\n",
                "\r\n", "\"=\"", "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\P\\"}
VALUE_NAMES = {"db_format_ver", "product_id", "pop-db-time", "papertype_info_list", "id", "valid", "visible",
               "checksum", "000", "001", "00000001", "PrinterDriverData\\Media", "\\HMI", "\\HMN", "en", "ja"}


def write_dict(target, tokens):
    folder = ROOT / "fuzz" / "dict"
    folder.mkdir(exist_ok=True)
    escaped = ("".join(c if 32 <= ord(c) < 127 and c not in '"\\' else "\\x%02x" % b
                       for c, b in zip(t, t.encode("latin-1", "replace")))
               for t in tokens if t and all(ord(c) < 256 for c in t))
    (folder / (target + ".dict")).write_text("".join('"%s"\n' % t for t in sorted(set(escaped))))


def main():
    xml = xml_tokens()
    write_dict("xml_text", xml)
    write_dict("media_document", xml)
    write_dict("file_readers", xml | {"\x1e"})
    write_dict("store_file", STORE_TOKENS | VALUE_NAMES)
    write_dict("printer_data", xml | VALUE_NAMES | {"\x1e", "\x1f", "\x1fs", "\x1fd", "\x1fb", "\x1fx"})
    sections = store_sections()
    database = media_of(sections, None)  # every medium, names and all, without documents
    small = media_of(sections, SMALL_MEDIA)
    for target in ("store_file", "printer_data", "media_document", "file_readers"):
        shutil.rmtree(CORPUS / target, ignore_errors=True)

    write("store_file", "database.reg", b"\0" + store_text(database).encode())
    write("store_file", "small_media.reg", b"\0" + store_text(small).encode())
    write("store_file", "small_media_utf16.reg", b"\0\xff\xfe" + store_text(small[:4], "REGEDIT4").encode("utf-16-le"))
    absolute = [("[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\P\\" + key[1:], body)
                for key, body in small[:3]] + [("[-PrinterDriverData\\Media\\00000001]", []), ("[M]", ['"a"=-'])]
    write("store_file", "absolute_and_deletions.reg", b"\x85" + store_text(absolute).encode())

    write("printer_data", "database", b"\0" + printer_data(database))
    write("printer_data", "small_media", b"\0" + printer_data(small))
    write("printer_data", "small_media_failing", b"\x30" + printer_data(small))

    for i, medium in enumerate(SMALL_MEDIA):
        document = (SAMPLES / "sample-printer" / "media" / (medium + ".xml")).read_text(encoding="utf-8")
        write("media_document", medium, bytes([0, 7 * i]) + units(document))
        names = (SAMPLES / "sample-printer" / "names" / (medium + ".xml")).read_bytes()
        fields = [b"ja", medium.encode(), b"medium.xml",
                  (SAMPLES / "sample-printer" / "database.xml").read_bytes(), names, document.encode()]
        write("file_readers", medium, bytes([0x40 * i]) + b"\x1e".join(fields))


if __name__ == "__main__":
    main()
