/** @file xrvhmi.h
 * XRVHMI: media information of the printer driver.
 * C ABI shared by XRVHMI.dll (Windows x64) and libxrvhmi.so (Linux x86-64).
 * Every record layout below is binding; sizes and offsets are checked at compile time. */
#ifndef XRVHMI_H
#define XRVHMI_H

#include <stddef.h>
#include <stdint.h>

#include "xrvhmi_version.h"

#ifdef _WIN32
#include <windows.h>
#define HMI_EXPORT
#else
#ifndef __cplusplus
#include <uchar.h>
#endif
/* Windows types with their Windows widths: WCHAR is a UTF-16 code unit, never the 4-byte wchar_t. */
typedef char16_t WCHAR;
typedef int32_t BOOL;
typedef uint32_t DWORD;
typedef void* HANDLE;
typedef void* HINSTANCE;
typedef void* LPVOID;
#define HMI_EXPORT __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
#define HMI_STATIC_ASSERT(c, m) static_assert(c, m)
#else
#define HMI_STATIC_ASSERT(c, m) _Static_assert(c, m)
#endif

/* ---- Enumerations: stored and passed as 32-bit values ---- */
typedef enum _tagHMI_ONOFF { HMI_OFF = 0, HMI_ON = 1, HMI_ONOFF_ALL = 3, HMI_ONOFF_INVALID = 4 } _tagHMI_ONOFF;
typedef enum tagHMI_COLORMODE {
    HMI_COLORMODE_COLOR = 0, HMI_COLORMODE_MONOCHROME = 1, HMI_COLORMODE_ALL = 3, HMI_COLORMODE_INVALID = 4
} tagHMI_COLORMODE;
typedef enum tagHMI_PRINTPURPOSE {
    HMI_PRINTPURPOSE_PHOTO = 0, HMI_PRINTPURPOSE_PROOF = 1, HMI_PRINTPURPOSE_CAD = 2,
    HMI_PRINTPURPOSE_ALL = 4, HMI_PRINTPURPOSE_INVALID = 5
} tagHMI_PRINTPURPOSE;
typedef enum tagHMI_PRINTQUALITY {
    HMI_PRINTQUALITY_1 = 0, HMI_PRINTQUALITY_2 = 1, HMI_PRINTQUALITY_3 = 2, HMI_PRINTQUALITY_4 = 3,
    HMI_PRINTQUALITY_5 = 4, HMI_PRINTQUALITY_ALL = 6, HMI_PRINTQUALITY_INVALID = 7
} tagHMI_PRINTQUALITY;
typedef enum tagHMI_PRINTQUALITY3POS {
    HMI_3POS_FINE = 0, HMI_3POS_NORMAL = 1, HMI_3POS_DRAFT = 2, HMI_3POS_ALL = 4, HMI_3POS_INVALID = 5
} tagHMI_PRINTQUALITY3POS;
typedef enum tagHMI_CLEARCOAT {
    HMI_CLEARCOAT_NONE = 0, HMI_CLEARCOAT_AUTO = 1, HMI_CLEARCOAT_ALL = 2, HMI_CLEARCOAT_CUSTOM = 3,
    HMI_CLEARCOAT_INVALID = 6
} tagHMI_CLEARCOAT;
typedef enum tagHMI_DUPLEXPRINT {
    HMI_DUPLEX_OFF = 0, HMI_DUPLEX_MANUAL = 1, HMI_DUPLEX_AUTO = 2, HMI_DUPLEX_ALL = 4, HMI_DUPLEX_INVALID = 5
} tagHMI_DUPLEXPRINT;
typedef enum tagHMI_CARTRIDGE {
    HMI_CARTRIDGE_COLOR = 0, HMI_CARTRIDGE_BK = 1, HMI_CARTRIDGE_PHOTO = 2, HMI_CARTRIDGE_BKCOLOR = 3,
    HMI_CARTRIDGE_PHOTOCOLOR = 5, HMI_CARTRIDGE_AUTO = 6, HMI_CARTRIDGE_ALL = 8, HMI_CARTRIDGE_INVALID = 9
} tagHMI_CARTRIDGE;
typedef enum tagHMI_APPHAGAKIMEDIA {
    HMI_APPHAGAKI_NONE = 0, HMI_APPHAGAKI_ADDRESS = 1, HMI_APPHAGAKI_CONTENTS = 2, HMI_APPHAGAKI_INVALID = 5
} tagHMI_APPHAGAKIMEDIA;
typedef enum tagHMI_HAGAKIAUTODUPLEXMODE {
    HMI_HAGAKIDUPLEX_NORMAL = 0, HMI_HAGAKIDUPLEX_ADDRESS = 1, HMI_HAGAKIDUPLEX_CONTENTS = 2,
    HMI_HAGAKIDUPLEX_INVALID = 5
} tagHMI_HAGAKIAUTODUPLEXMODE;
/* "01" .. "14" give 0 .. 13. */
typedef enum tagHMI_MEDIACATEGORY {
    HMI_MEDIACATEGORY_01 = 0, HMI_MEDIACATEGORY_02, HMI_MEDIACATEGORY_03, HMI_MEDIACATEGORY_04,
    HMI_MEDIACATEGORY_05, HMI_MEDIACATEGORY_06, HMI_MEDIACATEGORY_07, HMI_MEDIACATEGORY_08,
    HMI_MEDIACATEGORY_09, HMI_MEDIACATEGORY_10, HMI_MEDIACATEGORY_11, HMI_MEDIACATEGORY_12,
    HMI_MEDIACATEGORY_13, HMI_MEDIACATEGORY_14, HMI_MEDIACATEGORY_INVALID = 16
} tagHMI_MEDIACATEGORY;
typedef enum _tagHMI_PAPERSIZE {
    HMI_PAPERSIZE_ISO_A5 = 0, HMI_PAPERSIZE_ISO_A4, HMI_PAPERSIZE_ISO_A3, HMI_PAPERSIZE_ISO_A2,
    HMI_PAPERSIZE_JIS_B5, HMI_PAPERSIZE_JIS_B4, HMI_PAPERSIZE_ISO_B3, HMI_PAPERSIZE_NA_LETTER,
    HMI_PAPERSIZE_NA_LEGAL, HMI_PAPERSIZE_NA_LEDGER, HMI_PAPERSIZE_JPN_HAGAKI, HMI_PAPERSIZE_200X148MM,
    HMI_PAPERSIZE_329X483MM, HMI_PAPERSIZE_89X127MM, HMI_PAPERSIZE_127X178MM, HMI_PAPERSIZE_NA_INDEX_4X6,
    HMI_PAPERSIZE_4X8IN, HMI_PAPERSIZE_NA_5X7, HMI_PAPERSIZE_17X22IN, HMI_PAPERSIZE_101X180MM,
    HMI_PAPERSIZE_55X91MM, HMI_PAPERSIZE_54X86MM, HMI_PAPERSIZE_98X190MM, HMI_PAPERSIZE_203X254MM,
    HMI_PAPERSIZE_254X304MM, HMI_PAPERSIZE_355X431MM, HMI_PAPERSIZE_INVALID = 27
} _tagHMI_PAPERSIZE;
typedef enum _tagHMI_LOCALE {
    HMI_LOCALE_WW = 0, HMI_LOCALE_JA = 1, HMI_LOCALE_US = 2, HMI_LOCALE_EU = 3, HMI_LOCALE_INVALID = 5
} _tagHMI_LOCALE;
typedef enum _tagHMI_BKINKTYPE { HMI_BKINK_PBK = 0, HMI_BKINK_MBK = 1, HMI_BKINK_INVALID = 3 } _tagHMI_BKINKTYPE;
typedef enum _tagHMI_INPUTBIN {
    HMI_INPUTBIN_AUTO = 0, HMI_INPUTBIN_MANUAL03 = 1, HMI_INPUTBIN_ASF = 2, HMI_INPUTBIN_MANUAL = 3,
    HMI_INPUTBIN_DISCTRAY = 10, HMI_INPUTBIN_ALL = 12, HMI_INPUTBIN_INVALID = 13
} _tagHMI_INPUTBIN;
typedef enum _tagHMI_FINISHER {
    HMI_FINISHER_AUTOCUT = 0, HMI_FINISHER_BANNER = 1, HMI_FINISHER_ALL = 3, HMI_FINISHER_INVALID = 4
} _tagHMI_FINISHER;

/* ---- List shapes: a count and a fixed array; the size is padded to a multiple of 8 ---- */
#ifdef __cplusplus
template <typename E, size_t N>
struct HMITagList {
    uint64_t count;
    E values[N];
};
template <typename E, size_t N>
struct HMITagListWithDefault {
    E defaultValue;
    uint32_t reserved;
    uint64_t count;
    E values[N];
};
#define HMI_TAG_LIST(E, N, tag) HMITagList<E, N>
#define HMI_TAG_LIST_WITH_DEFAULT(E, N, tag) HMITagListWithDefault<E, N>
#else
#define HMI_TAG_LIST(E, N, tag) struct tag { uint64_t count; E values[N]; }
#define HMI_TAG_LIST_WITH_DEFAULT(E, N, tag) \
    struct tag { E defaultValue; uint32_t reserved; uint64_t count; E values[N]; }
#endif

/* ---- Records of the paper-type database and the media names ---- */
typedef struct _tagHMICommonInfo {
    float db_format_ver;
    WCHAR product_id[9];
    WCHAR pop_db_time[20];
    uint16_t reserved;
} _tagHMICommonInfo;

/* Followed in the same block by `count` entries of WCHAR[65]; `ids` points at the first one. */
typedef struct _tagHMIAvailableMedia {
    uint64_t count;
    WCHAR (*ids)[65];
} _tagHMIAvailableMedia;
/** The size of a media list block with count ids. */
#define HMI_AVAILABLE_MEDIA_BYTES(count) (16u + 130u * (uint64_t)(count))

typedef struct _tagHMIMediaInfoHeader {
    WCHAR id[65];
    uint16_t reserved1;
    BOOL visible;
    DWORD valid;
    DWORD media_number;
    WCHAR checksum[33];
    uint16_t reserved2;
} _tagHMIMediaInfoHeader;

typedef struct _tagHMIMediaName {
    WCHAR language[3];
    WCHAR name[65];
} _tagHMIMediaName;

/* Followed in the same block by the name entries; `names` points at the first one. */
typedef struct _tagHMIMediaNameList {
    uint64_t count;
    _tagHMIMediaName* names;
} _tagHMIMediaNameList;
/** The size of a name list block with count names. */
#define HMI_MEDIA_NAME_LIST_BYTES(count) (16u + 136u * (uint64_t)(count))

/* ---- Records of a medium's option tree ---- */
typedef HMI_TAG_LIST_WITH_DEFAULT(tagHMI_COLORMODE, 2, _tagHMIAvailableColorModeList) _tagHMIAvailableColorMode;
typedef HMI_TAG_LIST_WITH_DEFAULT(_tagHMI_ONOFF, 2, _tagHMIAvailableBorderlessList) _tagHMIAvailableBorderless;
typedef HMI_TAG_LIST_WITH_DEFAULT(tagHMI_PRINTPURPOSE, 3, _tagHMIAvailablePrintPurposeList)
    _tagHMIAvailablePrintPurpose;
typedef HMI_TAG_LIST_WITH_DEFAULT(tagHMI_PRINTQUALITY, 5, _tagHMIAvailablePrintQualityList)
    _tagHMIAvailablePrintQuality;

typedef struct _tagHMIPrintArea {
    uint32_t constrained;
    uint32_t reserved;
    uint64_t values[4];
} _tagHMIPrintArea;

typedef struct _tagHMIMediaInfo {
    WCHAR id[65];
    uint16_t reserved1[3];
    uint64_t operationflag;
    uint32_t reserved2;
    WCHAR format_version[5];
    uint16_t reserved3;
    tagHMI_MEDIACATEGORY medium_category;
    uint32_t reserved4;
    HMI_TAG_LIST(_tagHMI_PAPERSIZE, 26, _tagHMIPaperSizeList) unsuported_papersize;
    _tagHMIPrintArea printarea;
    HMI_TAG_LIST(_tagHMI_LOCALE, 4, _tagHMILocaleList) locale;
    HMI_TAG_LIST(_tagHMI_BKINKTYPE, 2, _tagHMIBkInkTypeList) bk_ink_type;
    HMI_TAG_LIST_WITH_DEFAULT(_tagHMI_INPUTBIN, 11, _tagHMIInputBinList) availableinputbinid;
    _tagHMIAvailableColorMode availableprintcolormode;
} _tagHMIMediaInfo;

typedef struct _tagHMIPrintPurposeInfo {
    tagHMI_PRINTPURPOSE type;
    uint32_t reserved;
    uint64_t operationflag;
    HMI_TAG_LIST_WITH_DEFAULT(tagHMI_DUPLEXPRINT, 3, _tagHMIDuplexPrintList) availableduplexprint;
    HMI_TAG_LIST_WITH_DEFAULT(tagHMI_CARTRIDGE, 7, _tagHMICartridgeList) availablecartridge;
    HMI_TAG_LIST(tagHMI_APPHAGAKIMEDIA, 3, _tagHMIAppPostcardMediaList) availableAppPostcardMedia;
    HMI_TAG_LIST(tagHMI_HAGAKIAUTODUPLEXMODE, 3, _tagHMIHagakiAutoDuplexModeList) availableHagakiAutoDuplexMode;
    _tagHMIAvailablePrintQuality availableprintquality_rgb;
    _tagHMIAvailablePrintQuality availableprintquality_cmyk_4DLUT;
    _tagHMIAvailablePrintQuality availableprintquality_cmyk_1DLUT;
    _tagHMIAvailablePrintQuality printquality_index;
} _tagHMIPrintPurposeInfo;

typedef struct _tagHMIPrintQualityInfo {
    tagHMI_PRINTQUALITY type;
    tagHMI_PRINTQUALITY3POS threeposition;
    uint64_t operationflag;
    WCHAR output_icc[65];
    uint16_t reserved1;
    int32_t bit;
    WCHAR app_filter_id[9];
    uint16_t reserved2[3];
    HMI_TAG_LIST_WITH_DEFAULT(int32_t, 8, _tagHMIResolutionList) availableresolution;
    HMI_TAG_LIST(tagHMI_CLEARCOAT, 4, _tagHMIClearCoatList) availableclearcoat;
} _tagHMIPrintQualityInfo;

/* ---- Opaque handles ---- */
#ifdef __cplusplus
class HMIAccess;
class HMIXMLMediaDetail;
class HMIXMLMediaColorMode;
class HMIXMLMediaBorderlessMode;
class HMIXMLMediaPrintPurpose;
#else
typedef struct HMIAccess HMIAccess;                                 /**< A handle from HMIOpen. */
typedef struct HMIXMLMediaDetail HMIXMLMediaDetail;                 /**< A medium's option tree. */
typedef struct HMIXMLMediaColorMode HMIXMLMediaColorMode;           /**< A colour mode's branch. */
typedef struct HMIXMLMediaBorderlessMode HMIXMLMediaBorderlessMode; /**< A borderless setting's branch. */
typedef struct HMIXMLMediaPrintPurpose HMIXMLMediaPrintPurpose;     /**< A print purpose's branch. */
#endif

/* ---- Exports ---- */
/** @defgroup rules Rules every entry point keeps
 * Every entry point checks its pointers: a null one that it needs makes it fail (FALSE or null) without
 * writing any out-argument; none throws, none crashes on bad printer data or bad XML. Records are copied byte for
 * byte into the caller's memory. Enumeration arguments may hold any 32 bits.
 *
 * Threads: the library takes no locks. A handle from HMIOpen, and every node reached from it, must be
 * used by one thread at a time; distinct handles share no mutable state and may be used on different
 * threads at once. Entry points that load a document (the Filter and Direct forms on a medium not yet
 * cached, and the File entry points) initialise COM on the calling thread for that call only and leave
 * it as they found it, so any thread may make them.
 *
 * A C API cannot detect a handle used after HMIClose or one from another library. @{ */
/** @} */
#ifdef __cplusplus
extern "C" {
#endif

/** Opens a handle on a printer's media database: printerHandle is a printer opened with OpenPrinterW,
 * whose paper-type database is loaded now, or null for a handle that only the File entry points use.
 * @return the handle, owned by the caller and released with HMIClose; null when the database cannot be
 *         read (missing or oversized common values) or memory runs out. A medium whose entry cannot be
 *         read is left out of the database; nothing else is. */
HMI_EXPORT HMIAccess* HMIOpen(HANDLE printerHandle);
/** Makes later reads of names and media documents use printerHandle (the database stays the one loaded
 * by HMIOpen; cached media stay cached). @return FALSE only for a null access. */
HMI_EXPORT BOOL HMIUpdatePrinterHandle(HMIAccess* access, HANDLE printerHandle);
/** Releases the handle and every medium it cached (nodes from HMIFilterMedia and the Direct forms are
 * invalid afterwards; trees from HMIFilterMediaFile are not). A null access is ignored. */
HMI_EXPORT void HMIClose(HMIAccess* access);
/** The database's common information. product_id and pop_db_time hold the stored units as they are: a
 * stored text that fills its field carries no terminator, so read them bounded by the field's width.
 * @return FALSE for a handle without a printer. */
HMI_EXPORT BOOL HMIGetCommonInfo(HMIAccess* access, _tagHMICommonInfo* out);
/** The common information of a database file (the same record from the XML file at path), written
 * into *out field by field. @return FALSE when the file cannot be loaded or lacks a field. */
HMI_EXPORT BOOL HMIGetCommonInfoFile(HMIAccess* access, const WCHAR* path, _tagHMICommonInfo* out);
/** The ids of the database's media, in list order: the record, then `count` ids of WCHAR[65], in one
 * block of HMI_AVAILABLE_MEDIA_BYTES(count) bytes; `ids` points into the block. A null buffer asks for
 * the size: when buffer is null or smaller than needed the call fails, writes nothing into it and sets
 * *requiredBytes (requiredBytes may be null). */
HMI_EXPORT BOOL HMIGetAvailableMedia(HMIAccess* access, _tagHMIAvailableMedia* buffer, size_t bufferBytes,
                                     size_t* requiredBytes);
/** HMIGetAvailableMedia from a database file: the ids of every "papertype_info" element. A buffer that
 * fits is zero-filled, all bufferBytes of it, before the ids are written. */
HMI_EXPORT BOOL HMIGetAvailableMediaFile(HMIAccess* access, const WCHAR* path, _tagHMIAvailableMedia* buffer,
                                         size_t bufferBytes, size_t* requiredBytes);
/** The header of the medium mediaId (exact, case-sensitive). @return FALSE for an unknown id. */
HMI_EXPORT BOOL HMIGetMediaInfoHeader(HMIAccess* access, const WCHAR* mediaId, _tagHMIMediaInfoHeader* out);
/** The header of the "papertype_info" element whose id is mediaId in a database file. */
HMI_EXPORT BOOL HMIGetMediaInfoHeaderFile(HMIAccess* access, const WCHAR* path, const WCHAR* mediaId,
                                          _tagHMIMediaInfoHeader* out);
/** The medium's name in language (e.g. "en"), as stored in the printer data, into buffer of bufferChars
 * WCHARs (null asks for the size). The name is copied as stored: a stored name without a terminating
 * zero is copied without one, and the buffer's units after the stored ones are left as they were.
 * requiredChars must be given: it is set to the stored characters + 1 when the buffer is null or too
 * small (the call fails), and to 0 after a success or when the medium has no name in that language.
 * @return FALSE also for an unknown medium (requiredChars untouched). */
HMI_EXPORT BOOL HMIGetMediaName(HMIAccess* access, const WCHAR* mediaId, const WCHAR* language, WCHAR* buffer,
                                size_t bufferChars, size_t* requiredChars);
/** The name in language from a names file's "iv:medianame_item" elements (the first that matches). A
 * buffer of length + 1 WCHARs is needed: a smaller one fails with *requiredChars set (when given) and
 * nothing written. */
HMI_EXPORT BOOL HMIGetMediaNameFile(HMIAccess* access, const WCHAR* path, const WCHAR* language, WCHAR* buffer,
                                    size_t bufferChars, size_t* requiredChars);
/** Every (language, name) of a names file's "medianame_item" elements in no namespace: the record, then
 * `count` _tagHMIMediaName entries in the same block; sizes as HMIGetAvailableMedia. */
HMI_EXPORT BOOL HMIEnumMediaNamesFile(HMIAccess* access, const WCHAR* path, _tagHMIMediaNameList* buffer,
                                      size_t bufferBytes, size_t* requiredBytes);
/** The option tree of the medium mediaId: loaded from its media-information document on first use and
 * cached in the handle, so later calls return the same node without reading the printer again.
 * @return a node owned by the handle, valid until HMIClose; null for an unknown id or a document that is
 *         missing, not well-formed or rejected (nothing is cached then; a later call tries again). */
HMI_EXPORT HMIXMLMediaDetail* HMIFilterMedia(HMIAccess* access, const WCHAR* mediaId);
/** The option tree of the first medium of the media-information file at path, named mediaId.
 * @return a tree owned by the caller, released with HMICloseMediaFile; it outlives the handle. */
HMI_EXPORT HMIXMLMediaDetail* HMIFilterMediaFile(HMIAccess* access, const WCHAR* mediaId, const WCHAR* path);
/** Releases a tree from HMIFilterMediaFile (not a node from HMIFilterMedia). Ignored with a null access. */
HMI_EXPORT void HMICloseMediaFile(HMIAccess* access, HMIXMLMediaDetail* detail);
/** The medium's own record. */
HMI_EXPORT BOOL HMIGetMediaInfo(HMIAccess* access, HMIXMLMediaDetail* detail, _tagHMIMediaInfo* out);
/** HMIGetMediaInfo of HMIFilterMedia(access, mediaId). */
HMI_EXPORT BOOL HMIGetMediaInfoDirect(HMIAccess* access, const WCHAR* mediaId, _tagHMIMediaInfo* out);
/** The medium's available colour modes with their default. */
HMI_EXPORT BOOL HMIGetAvailableColorMode(HMIAccess* access, HMIXMLMediaDetail* detail,
                                         _tagHMIAvailableColorMode* out);
/** The branch for colorMode below the medium: the node of that value, else the node of "all"; null when
 * neither exists. Nodes below a medium live as long as the medium's tree. */
HMI_EXPORT HMIXMLMediaColorMode* HMIFilterColorMode(HMIAccess* access, HMIXMLMediaDetail* detail,
                                                    tagHMI_COLORMODE colorMode);
/** HMIFilterColorMode of HMIFilterMedia(access, mediaId). */
HMI_EXPORT HMIXMLMediaColorMode* HMIFilterColorModeDirect(HMIAccess* access, const WCHAR* mediaId,
                                                          tagHMI_COLORMODE colorMode);
/** The borderless settings available below a colour mode, with their default. */
HMI_EXPORT BOOL HMIGetAvailableBorderless(HMIAccess* access, HMIXMLMediaColorMode* colorMode,
                                          _tagHMIAvailableBorderless* out);
/** The branch for borderless below a colour mode, falling back to "all" as HMIFilterColorMode does. */
HMI_EXPORT HMIXMLMediaBorderlessMode* HMIFilterBorderless(HMIAccess* access, HMIXMLMediaColorMode* colorMode,
                                                          _tagHMI_ONOFF borderless);
/** HMIFilterBorderless below HMIFilterColorModeDirect(access, mediaId, colorMode). */
HMI_EXPORT HMIXMLMediaBorderlessMode* HMIFilterBorderlessDirect(HMIAccess* access, const WCHAR* mediaId,
                                                                tagHMI_COLORMODE colorMode,
                                                                _tagHMI_ONOFF borderless);
/** The print purposes available below a borderless setting, with their default. */
HMI_EXPORT BOOL HMIGetAvailablePrintPurpose(HMIAccess* access, HMIXMLMediaBorderlessMode* borderless,
                                            _tagHMIAvailablePrintPurpose* out);
/** The branch for purpose below a borderless setting, falling back to "all". */
HMI_EXPORT HMIXMLMediaPrintPurpose* HMIFilterPrintPurpose(HMIAccess* access, HMIXMLMediaBorderlessMode* borderless,
                                                          tagHMI_PRINTPURPOSE purpose);
/** HMIFilterPrintPurpose below HMIFilterBorderlessDirect(access, mediaId, colorMode, borderless). */
HMI_EXPORT HMIXMLMediaPrintPurpose* HMIFilterPrintPurposeDirect(HMIAccess* access, const WCHAR* mediaId,
                                                                tagHMI_COLORMODE colorMode,
                                                                _tagHMI_ONOFF borderless,
                                                                tagHMI_PRINTPURPOSE purpose);
/** The print purpose's record, with the quality lists of all four variants. */
HMI_EXPORT BOOL HMIGetPrintPurposeInfo(HMIAccess* access, HMIXMLMediaPrintPurpose* purpose,
                                       _tagHMIPrintPurposeInfo* out);
/** The qualities available for one variant: 0 rgb, 1 cmyk_4DLUT, 2 cmyk_1DLUT, 3 index; another variant
 * fails. */
HMI_EXPORT BOOL HMIGetAvailablePrintQuality(HMIAccess* access, HMIXMLMediaPrintPurpose* purpose, DWORD variant,
                                            _tagHMIAvailablePrintQuality* out);
/** The record of quality in one variant (as HMIGetAvailablePrintQuality) below a print purpose: that
 * quality's node, else the variant's "all" node; FALSE when neither exists. */
HMI_EXPORT BOOL HMIGetPrintQualityInfo(HMIAccess* access, HMIXMLMediaPrintPurpose* purpose, DWORD variant,
                                       tagHMI_PRINTQUALITY quality, _tagHMIPrintQualityInfo* out);

#ifdef __cplusplus
}
#endif

/* ---- Binding layouts ---- */
#define HMI_CHECK_SIZE(T, n) HMI_STATIC_ASSERT(sizeof(T) == (n), "size of " #T)
#define HMI_CHECK_OFFSET(T, f, n) HMI_STATIC_ASSERT(offsetof(T, f) == (n), "offset of " #T "." #f)

HMI_CHECK_SIZE(WCHAR, 2);
HMI_CHECK_SIZE(BOOL, 4);
HMI_CHECK_SIZE(DWORD, 4);
HMI_CHECK_SIZE(tagHMI_COLORMODE, 4);

HMI_CHECK_SIZE(_tagHMICommonInfo, 64);
HMI_CHECK_OFFSET(_tagHMICommonInfo, product_id, 4);
HMI_CHECK_OFFSET(_tagHMICommonInfo, pop_db_time, 22);
HMI_CHECK_OFFSET(_tagHMICommonInfo, reserved, 62);

HMI_CHECK_SIZE(_tagHMIAvailableMedia, 16);
HMI_CHECK_OFFSET(_tagHMIAvailableMedia, ids, 8);

HMI_CHECK_SIZE(_tagHMIMediaInfoHeader, 212);
HMI_CHECK_OFFSET(_tagHMIMediaInfoHeader, reserved1, 130);
HMI_CHECK_OFFSET(_tagHMIMediaInfoHeader, visible, 132);
HMI_CHECK_OFFSET(_tagHMIMediaInfoHeader, valid, 136);
HMI_CHECK_OFFSET(_tagHMIMediaInfoHeader, media_number, 140);
HMI_CHECK_OFFSET(_tagHMIMediaInfoHeader, checksum, 144);
HMI_CHECK_OFFSET(_tagHMIMediaInfoHeader, reserved2, 210);

HMI_CHECK_SIZE(_tagHMIMediaName, 136);
HMI_CHECK_OFFSET(_tagHMIMediaName, name, 6);
HMI_CHECK_SIZE(_tagHMIMediaNameList, 16);
HMI_CHECK_OFFSET(_tagHMIMediaNameList, names, 8);

HMI_CHECK_SIZE(_tagHMIAvailableColorMode, 24);
HMI_CHECK_OFFSET(_tagHMIAvailableColorMode, count, 8);
HMI_CHECK_OFFSET(_tagHMIAvailableColorMode, values, 16);
HMI_CHECK_SIZE(_tagHMIAvailableBorderless, 24);
HMI_CHECK_OFFSET(_tagHMIAvailableBorderless, values, 16);
HMI_CHECK_SIZE(_tagHMIAvailablePrintPurpose, 32);
HMI_CHECK_OFFSET(_tagHMIAvailablePrintPurpose, values, 16);
HMI_CHECK_SIZE(_tagHMIAvailablePrintQuality, 40);
HMI_CHECK_OFFSET(_tagHMIAvailablePrintQuality, count, 8);
HMI_CHECK_OFFSET(_tagHMIAvailablePrintQuality, values, 16);

HMI_CHECK_SIZE(_tagHMIMediaInfo, 448);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, reserved1, 130);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, operationflag, 136);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, reserved2, 144);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, format_version, 148);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, reserved3, 158);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, medium_category, 160);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, reserved4, 164);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, unsuported_papersize.count, 168);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, unsuported_papersize.values, 176);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, printarea.constrained, 280);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, printarea.values, 288);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, locale.count, 320);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, locale.values, 328);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, bk_ink_type.count, 344);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, bk_ink_type.values, 352);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, availableinputbinid.defaultValue, 360);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, availableinputbinid.count, 368);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, availableinputbinid.values, 376);
HMI_CHECK_OFFSET(_tagHMIMediaInfo, availableprintcolormode, 424);

HMI_CHECK_SIZE(_tagHMIPrintPurposeInfo, 304);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, operationflag, 8);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availableduplexprint.defaultValue, 16);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availableduplexprint.count, 24);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availableduplexprint.values, 32);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availablecartridge.defaultValue, 48);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availablecartridge.count, 56);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availablecartridge.values, 64);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availableAppPostcardMedia.count, 96);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availableAppPostcardMedia.values, 104);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availableHagakiAutoDuplexMode.count, 120);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availableHagakiAutoDuplexMode.values, 128);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availableprintquality_rgb, 144);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availableprintquality_cmyk_4DLUT, 184);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, availableprintquality_cmyk_1DLUT, 224);
HMI_CHECK_OFFSET(_tagHMIPrintPurposeInfo, printquality_index, 264);

HMI_CHECK_SIZE(_tagHMIPrintQualityInfo, 248);
HMI_CHECK_OFFSET(_tagHMIPrintQualityInfo, threeposition, 4);
HMI_CHECK_OFFSET(_tagHMIPrintQualityInfo, operationflag, 8);
HMI_CHECK_OFFSET(_tagHMIPrintQualityInfo, output_icc, 16);
HMI_CHECK_OFFSET(_tagHMIPrintQualityInfo, reserved1, 146);
HMI_CHECK_OFFSET(_tagHMIPrintQualityInfo, bit, 148);
HMI_CHECK_OFFSET(_tagHMIPrintQualityInfo, app_filter_id, 152);
HMI_CHECK_OFFSET(_tagHMIPrintQualityInfo, reserved2, 170);
HMI_CHECK_OFFSET(_tagHMIPrintQualityInfo, availableresolution.defaultValue, 176);
HMI_CHECK_OFFSET(_tagHMIPrintQualityInfo, availableresolution.count, 184);
HMI_CHECK_OFFSET(_tagHMIPrintQualityInfo, availableresolution.values, 192);
HMI_CHECK_OFFSET(_tagHMIPrintQualityInfo, availableclearcoat.count, 224);
HMI_CHECK_OFFSET(_tagHMIPrintQualityInfo, availableclearcoat.values, 232);

#endif /* XRVHMI_H */
