#include "printerdata/media_info_document.h"

#include <cstring>
#include <memory>
#include <new>

#include "common/hmi_string.h"
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

// Every chunk is located before any text is joined: a missing one fails the whole document.
bool LocateChunks(const HMIPrinterDataValues& values, DWORD count, HMIDataArrayList* chunks) {
    for (DWORD i = 0; i < count; ++i) {
        WCHAR* nameText = nullptr;
        if (HMIFormatString(&nameText, HMI_W("%03d"), static_cast<int>(i)) < 0) return false;
        HMIHeapString name(nameText);
        const PRINTER_ENUM_VALUESW* chunk = FindPrinterDataValue(values, name.get());
        if (!chunk || !chunks->Add(chunk->pData, chunk->cbData)) return false;
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
