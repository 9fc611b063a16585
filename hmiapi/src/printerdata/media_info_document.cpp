#include "printerdata/media_info_document.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "printerdata/data_array.h"
#include "printerdata/printer_data_values.h"
#include "xml/hmi_xml_document.h"

namespace {

// The chunk count: the empty-named value, 1 to 4 bytes, little-endian.
bool ReadChunkCount(const HMIPrinterDataValues& values, DWORD* count) {
    const PRINTER_ENUM_VALUESW* value = FindPrinterDataValue(values, HMI_W(""));
    if (!value || value->cbData > sizeof *count) return false;
    *count = 0;
    std::memcpy(count, value->pData, value->cbData);
    return *count != 0;
}

// Every chunk is located, in one pass over the values, before any text is joined: a missing one
// fails the whole document. Of equal names the first entry counts.
bool LocateChunks(const HMIPrinterDataValues& values, DWORD count, HMIDataArrayList* chunks) {
    if (count > values.count) return false;  // each chunk is a value of its own
    std::unique_ptr<const PRINTER_ENUM_VALUESW*[]> found(new (std::nothrow) const PRINTER_ENUM_VALUESW*[count]());
    if (!found) return false;
    for (DWORD i = 0; i < values.count; ++i) {
        const PRINTER_ENUM_VALUESW& entry = values.entries()[i];
        const int64_t index = HMIListIndexOf(entry.pValueName);
        if (index >= 0 && index < count && !found[index]) found[index] = &entry;
    }
    for (DWORD i = 0; i < count; ++i) {
        if (!found[i] || !chunks->Add(found[i]->pData, found[i]->cbData)) return false;
    }
    return true;
}

// The chunks back to back, followed by a zero unit that ends the text.
std::unique_ptr<WCHAR[]> JoinChunks(const HMIDataArrayList& chunks) {
    uint64_t total = 2;
    for (const HMIDataArray* chunk : chunks) total += chunk->size;
    std::unique_ptr<WCHAR[]> text(new (std::nothrow) WCHAR[(total + 1) / 2]());
    if (!text) return nullptr;
    BYTE* out = reinterpret_cast<BYTE*>(text.get());
    for (const HMIDataArray* chunk : chunks) {
        std::memcpy(out, chunk->data, chunk->size);
        out += chunk->size;
    }
    return text;
}

}  // namespace

IXMLDOMDocument2* LoadMediaInfoDocument(HANDLE printer, const WCHAR* key) {
    if (!printer || !key) return nullptr;
    // The enumeration block outlives the list, whose elements point into it.
    HMIPrinterDataValues values;
    if (!EnumPrinterDataValues(printer, key, &values)) return nullptr;
    DWORD count = 0;
    if (!ReadChunkCount(values, &count)) return nullptr;
    HMIDataArrayList chunks;
    if (!LocateChunks(values, count, &chunks)) return nullptr;
    std::unique_ptr<WCHAR[]> text = JoinChunks(chunks);
    if (!text) return nullptr;
    return HMILoadXMLText(text.get());
}
