// XML files for the File-reader tests, written into a private directory whose name is not ASCII.
#ifndef HMI_TEST_FILE_TEST_FILES_H
#define HMI_TEST_FILE_TEST_FILES_H

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "../hmiapi/src/xml/hmi_media_namespace.h"
#include "support/media_database.h"

namespace hmitest {

struct TestFiles {
    const std::filesystem::path dir = std::filesystem::temp_directory_path() /
        std::filesystem::u8path(u8"hmi-file-\u00E9t\u00E9-\u7D19-" +
                                std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    TestFiles() { std::filesystem::create_directories(dir); }
    ~TestFiles() { std::error_code ignored; std::filesystem::remove_all(dir, ignored); }
    // Writes the bytes into the file called name (not ASCII either) and returns its path.
    WString Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(dir / std::filesystem::u8path(name + u8"-\u00FC.xml"), std::ios::binary) << bytes;
        return Path(name);
    }
    WString Path(const std::string& name) const {
        return (dir / std::filesystem::u8path(name + u8"-\u00FC.xml")).string<WCHAR>();
    }
};

// A test's files and a handle opened without a printer, as the File readers are used.
class FileTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_NE(access, nullptr); }
    void TearDown() override { HMIClose(access); }

    TestFiles files;
    HMIAccess* access = HMIOpen(nullptr);
};

// n letters a, b, c, ... (from first, wrapping after 26).
inline std::string Chars(size_t n, char first = 'a') {
    std::string text;
    for (size_t i = 0; i < n; ++i) text += static_cast<char>(first + i % 26);
    return text;
}

// A UTF-8 document whose root iv:root declares the media-information namespace.
inline std::string MediaXml(const std::string& body) {
    const std::string ns(HMI_MEDIA_NAMESPACE, HMI_MEDIA_NAMESPACE + std::char_traits<WCHAR>::length(HMI_MEDIA_NAMESPACE));
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<iv:root xmlns:iv=\"" + ns + "\">" + body + "</iv:root>\n";
}

// One medium of a database file; body holds its elements.
inline std::string PaperType(const std::string& id, const std::string& body) {
    return "<iv:papertype_info id=\"" + id + "\">" + body + "</iv:papertype_info>";
}

struct NameItem {  // as they stand in the XML (escaped where needed)
    std::string language, name;
};

// A names file in the library's form: every item once in the media-information namespace and once in none.
inline std::string NamesXml(const std::vector<NameItem>& items) {
    std::string body;
    for (const NameItem& item : items) {
        const std::string attribute = " language=\"" + item.language + "\">" + item.name;
        body += "<iv:medianame_item" + attribute + "</iv:medianame_item><medianame_item" + attribute + "</medianame_item>";
    }
    return MediaXml(body);
}

// A document that every File reader answers from: common information, medium "A" and its names.
inline std::string EveryReaderBody(const std::string& productId = "XR-2400") {
    return "<iv:db_format_ver>2.5</iv:db_format_ver><iv:product_id>" + productId +
           "</iv:product_id><iv:pop-db-time>2026-11-23 09:30:00</iv:pop-db-time>" +
           PaperType("A", "<iv:visible>ON</iv:visible><iv:checksum>C0FFEE</iv:checksum>") +
           "<iv:medianame_item language=\"en\">Gloss</iv:medianame_item>"
           "<medianame_item language=\"en\">Gloss</medianame_item><medium/>";
}

struct HostileFile {
    std::string name;
    WString path;
    bool refusedUnderWine;  // Wine's MSXML 6.0 loads documents with a DTD, which Windows' refuses
};

// Files every File reader must refuse; those that parse hold everything the readers look for.
inline std::vector<HostileFile> HostileFiles(const TestFiles& files) {
    const std::string doctype = "<?xml version=\"1.0\"?>\n<!DOCTYPE iv:root [<!ENTITY secret SYSTEM \"file://" +
                                std::filesystem::path(files.Write("secret", "SECRET")).generic_u8string() + "\">]>";
    const std::string entity = MediaXml(EveryReaderBody("&secret;"));
    const std::string plain = MediaXml(EveryReaderBody());
    std::string open, close;
    for (int i = 0; i < 10000; ++i) open += "<iv:n>", close += "</iv:n>";
    return {
        {"missing file", files.Path("missing"), true},
        {"directory", files.dir.string<WCHAR>(), true}, {"empty file", files.Write("empty", ""), true},
        {"unclosed", files.Write("unclosed", MediaXml(EveryReaderBody()).substr(0, 200)), true},
        {"10000 deep", files.Write("deep", MediaXml(open + EveryReaderBody() + close)), true},
        {"external entity", files.Write("entity", doctype + entity.substr(entity.find('\n') + 1)), false},
        {"DTD", files.Write("dtd", "<!DOCTYPE iv:root [<!ENTITY x \"y\">]>" + plain.substr(plain.find('\n'))), false},
    };
}

// Every File reader, writing what it reads into out (kOutBytes long; lists take all of it) and, if it
// reports one, a required size; the detail reader writes its medium's record. True when it answered.
constexpr size_t kOutBytes = 2048;
using FileReader = std::function<bool(HMIAccess*, const WCHAR* path, unsigned char* out, size_t* required)>;

inline const std::vector<std::pair<const char*, FileReader>>& FileReaders() {
    static const std::vector<std::pair<const char*, FileReader>> readers = {
        {"common info", [](HMIAccess* a, const WCHAR* p, unsigned char* out, size_t*) {
             return HMIGetCommonInfoFile(a, p, reinterpret_cast<_tagHMICommonInfo*>(out)) == TRUE;
         }},
        {"media list", [](HMIAccess* a, const WCHAR* p, unsigned char* out, size_t* required) {
             auto* media = reinterpret_cast<_tagHMIAvailableMedia*>(out);
             return HMIGetAvailableMediaFile(a, p, media, kOutBytes, required) == TRUE;
         }},
        {"header", [](HMIAccess* a, const WCHAR* p, unsigned char* out, size_t*) {
             auto* header = reinterpret_cast<_tagHMIMediaInfoHeader*>(out);
             return HMIGetMediaInfoHeaderFile(a, p, HMI_W("A"), header) == TRUE;
         }},
        {"name", [](HMIAccess* a, const WCHAR* p, unsigned char* out, size_t* required) {
             return HMIGetMediaNameFile(a, p, HMI_W("en"), reinterpret_cast<WCHAR*>(out), 8, required) == TRUE;
         }},
        {"name list", [](HMIAccess* a, const WCHAR* p, unsigned char* out, size_t* required) {
             auto* names = reinterpret_cast<_tagHMIMediaNameList*>(out);
             return HMIEnumMediaNamesFile(a, p, names, kOutBytes, required) == TRUE;
         }},
        {"detail", [](HMIAccess* a, const WCHAR* p, unsigned char* out, size_t*) {
             HMIXMLMediaDetail* detail = HMIFilterMediaFile(a, HMI_W("A"), p);
             const bool read = HMIGetMediaInfo(a, detail, reinterpret_cast<_tagHMIMediaInfo*>(out)) == TRUE;
             HMICloseMediaFile(a, detail);
             return read;
         }},
    };
    return readers;
}

}  // namespace hmitest

#endif
