/* The public header compiles as C (its record layouts are checked with _Static_assert there) and a C
 * program links against the library and calls it. */
#include <stdio.h>
#include <string.h>

#include "xrvhmi.h"

static int failures = 0;

static void expect(int condition, const char* what) {
    if (!condition) {
        ++failures;
        printf("FAILED: %s\n", what);
    }
}

int main(void) {
    _tagHMICommonInfo info;
    _tagHMIMediaInfoHeader header;
    size_t required = 12345;
    HMIAccess* access = HMIOpen(NULL);
    const WCHAR id[] = {'P', 'l', 'a', 'i', 'n', 0};

    memset(&info, 0xCD, sizeof info);
    expect(access != NULL, "HMIOpen(NULL) opens a handle for the File readers");
    expect(HMIGetCommonInfo(access, &info) == 0, "no common information without a printer");
    expect(HMIGetAvailableMedia(access, NULL, 0, &required) == 0, "no media list without a printer");
    expect(required == 12345, "the required size is not written without a media list");
    expect(HMIGetMediaInfoHeader(access, id, &header) == 0, "no header without a printer");
    expect(HMIUpdatePrinterHandle(NULL, NULL) == 0, "a null handle is refused");
    expect(HMIUpdatePrinterHandle(access, NULL) == 1, "the printer handle can be replaced");
    HMIClose(access);
    HMIClose(NULL);
    printf("%d passed, %d failed\n", failures ? 0 : 1, failures ? 1 : 0);
    return failures ? 1 : 0;
}
