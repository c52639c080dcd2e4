/// @file
/// Disk patterns: which disks a volume may lie on. The calls need no gate.
#ifndef QRVAPI_PATTERNS_H
#define QRVAPI_PATTERNS_H

#ifdef __cplusplus
extern "C" {
#endif

/// What kind of disks.
typedef enum {
    devtype_unknown = 0,
    devtype_fc = 1,
    devtype_nl = 2,
    devtype_fc15 = 3,
    devtype_ssd = 4,
    devtype_volume = 5,
    devtype_ssd100 = 6,
    devtype_all = 7
} devtype_e;

/// One pattern. Empty texts and negative numbers ask for nothing.
typedef struct api_pattern {
    char node[201];  ///< Texts are NUL-terminated lists as an administrator writes them.
    char pci[201];
    char port[201];
    char cage[201];
    char magazine[201];
    char magPosition[201];
    char diskIDs[201];
    int totalChunkGreaterThan;
    int totalChunkLessThan;
    int freeChunkGreaterThan;
    int freeChunkLessThan;
    int rpm;
    char deviceIDs[201];
    devtype_e deviceType;
} api_pattern_t;

#pragma GCC visibility push(default)

/// Makes a pattern that asks for nothing. Returns 0, or ERR_API_INVALID_ARGUMENT for null.
int api_initPattern(api_pattern_t* pattern);

/// Writes what a pattern asks for as text: words of the form "name=value" with blanks between them
/// and ";" at the end, so that patterns can stand one behind the other. Returns 0;
/// ERR_API_NO_SPACE when `room` bytes don't hold the text and its NUL, or ERR_API_INVALID_ARGUMENT.
/// `buffer` is then left as it was.
int api_constructPattern(char* buffer, int room, const api_pattern_t* pattern);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
