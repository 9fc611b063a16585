/* list-media PRINTER [LANG [MEDIA_ID]]: every medium of a printer with its name in LANG (default
 * "en"), then the colour modes of one medium (MEDIA_ID, or the first) and the qualities of each
 * borderless setting and print purpose below them. PRINTER is a store file or store name on Linux,
 * a printer name on Windows. Exit 0; 1 when a medium has no name in LANG or MEDIA_ID is unknown; 2 when the printer
 * cannot be opened or holds no media database. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "xrvhmi.h"
#ifdef _WIN32
#include <windows.h>
#else
#include <locale.h>
#include <uchar.h>

#include "hmispool.h"
#endif

/* A command-line text as UTF-16, in buffer of capacity units; false when it does not fit. */
static int ToUtf16(const char* text, WCHAR* buffer, size_t capacity) {
#ifdef _WIN32
    return MultiByteToWideChar(CP_ACP, 0, text, -1, buffer, (int)capacity) > 0;
#else
    mbstate_t state;
    size_t used = 0;
    memset(&state, 0, sizeof state);
    for (;;) {
        if (used + 1 >= capacity) return 0;
        size_t n = mbrtoc16(&buffer[used], text, strlen(text) + 1, &state);
        if (n == (size_t)-1 || n == (size_t)-2) return 0;
        if (n == 0) return 1;
        ++used;
        if (n != (size_t)-3) text += n;
    }
#endif
}

/* UTF-16 text, up to its terminator or max units, as UTF-8 in out (cut to capacity bytes). */
static const char* Utf8(const WCHAR* text, size_t max, char* out, size_t capacity) {
    size_t length = 0;
    while (length < max && text[length]) ++length;
#ifdef _WIN32
    int n = WideCharToMultiByte(CP_UTF8, 0, text, (int)length, out, (int)capacity - 1, NULL, NULL);
    out[n > 0 ? n : 0] = 0;
#else
    mbstate_t state;
    size_t used = 0;
    memset(&state, 0, sizeof state);
    for (size_t i = 0; i < length; ++i) {
        char unit[8];
        size_t n = c16rtomb(unit, text[i], &state);
        if (n == (size_t)-1 || used + n >= capacity) break;
        memcpy(out + used, unit, n);
        used += n;
    }
    out[used] = 0;
#endif
    return out;
}

static const char* const kColorModes[] = {"color", "monochrome", "?", "all"};
static const char* const kPurposes[] = {"photo", "proof", "cad", "?", "all"};

static const char* const kOnOff[] = {"OFF", "ON", "?", "all"};

/* Every print purpose below a borderless setting, with its rgb qualities. */
static void PrintPurposes(HMIAccess* access, HMIXMLMediaBorderlessMode* borderless) {
    _tagHMIAvailablePrintPurpose purposes;
    if (!HMIGetAvailablePrintPurpose(access, borderless, &purposes)) return;
    for (uint64_t p = 0; p < purposes.count; ++p) {
        tagHMI_PRINTPURPOSE purpose = purposes.values[p];
        _tagHMIAvailablePrintQuality qualities;
        printf("      %-6s qualities:", purpose <= HMI_PRINTPURPOSE_ALL ? kPurposes[purpose] : "?");
        if (HMIGetAvailablePrintQuality(access, HMIFilterPrintPurpose(access, borderless, purpose), 0, &qualities)) {
            for (uint64_t q = 0; q < qualities.count; ++q) printf(" %d", (int)qualities.values[q] + 1);
        }
        printf("\n");
    }
}

/* The colour modes of the medium, the borderless settings below each, and the purposes below those. */
static void PrintOptions(HMIAccess* access, const WCHAR* mediaId) {
    HMIXMLMediaDetail* detail = HMIFilterMedia(access, mediaId);
    _tagHMIAvailableColorMode colors;
    if (!HMIGetAvailableColorMode(access, detail, &colors)) return;
    for (uint64_t c = 0; c < colors.count; ++c) {
        tagHMI_COLORMODE color = colors.values[c];
        printf("  colour mode %s\n", color <= HMI_COLORMODE_ALL ? kColorModes[color] : "?");
        HMIXMLMediaColorMode* colorNode = HMIFilterColorMode(access, detail, color);
        _tagHMIAvailableBorderless borderless;
        if (!HMIGetAvailableBorderless(access, colorNode, &borderless)) continue;
        for (uint64_t b = 0; b < borderless.count; ++b) {
            _tagHMI_ONOFF onoff = borderless.values[b];
            printf("    borderless %s\n", onoff <= HMI_ONOFF_ALL ? kOnOff[onoff] : "?");
            PrintPurposes(access, HMIFilterBorderless(access, colorNode, onoff));
        }
    }
}

int main(int argc, char** argv) {
    WCHAR printerName[260], language[8], chosen[65];
    HANDLE printer = NULL;
#ifndef _WIN32
    setlocale(LC_ALL, "C.UTF-8");
#endif
    if (argc < 2 || argc > 4) {
        fprintf(stderr, "usage: list-media PRINTER [LANG [MEDIA_ID]]\n");
        return 64;
    }
    if (!ToUtf16(argv[1], printerName, 260) || !ToUtf16(argc > 2 ? argv[2] : "en", language, 8) ||
        !ToUtf16(argc > 3 ? argv[3] : "", chosen, 65) || !OpenPrinterW(printerName, &printer, NULL)) {
        fprintf(stderr, "list-media: cannot open the printer '%s'\n", argv[1]);
        return 2;
    }
    HMIAccess* access = HMIOpen(printer);
    size_t required = 0;
    _tagHMIAvailableMedia* media = NULL;
    if (access && !HMIGetAvailableMedia(access, NULL, 0, &required) && required) media = malloc(required);
    if (!media || !HMIGetAvailableMedia(access, media, required, &required)) {
        fprintf(stderr, "list-media: the printer '%s' holds no media database\n", argv[1]);
        free(media);
        HMIClose(access);
        ClosePrinter(printer);
        return 2;
    }
    int status = 0;
    char id[400], text[1100];
    for (uint64_t i = 0; i < media->count; ++i) {
        WCHAR name[261] = {0};
        size_t needed = 0;
        Utf8(media->ids[i], 65, id, sizeof id);
        if (HMIGetMediaName(access, media->ids[i], language, name, 260, &needed)) {
            printf("%s\t%s\n", id, Utf8(name, 260, text, sizeof text));
        } else {
            status = 1;
            printf("%s\t(no name)\n", id);
            fprintf(stderr, "list-media: the medium '%s' has no name in '%s'\n", id, argc > 2 ? argv[2] : "en");
        }
    }
    const WCHAR* shown = chosen[0] ? chosen : media->count ? media->ids[0] : NULL;
    _tagHMIMediaInfoHeader header;
    if (shown && HMIGetMediaInfoHeader(access, shown, &header)) {
        printf("\n%s:\n", Utf8(shown, 65, id, sizeof id));
        PrintOptions(access, shown);
    } else if (chosen[0]) {
        fprintf(stderr, "list-media: no medium '%s'\n", argv[3]);
        status = 1;
    }
    free(media);
    HMIClose(access);
    ClosePrinter(printer);
    return status;
}
