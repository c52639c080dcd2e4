/// @file
/// The log that the array library and its callers share.
#ifndef QRVAPI_LOG_H
#define QRVAPI_LOG_H

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/// Writes one entry to standard error, with its time and level. Levels: 2 an error or a refused
/// request, 3 a warning about the data of a request, 4 the trace. Entries above the level in force
/// (2 at the start) aren't even formatted. A newline at the end of the text is optional, and
/// control characters within it come out as blanks. Needs no gate.
void log_message(int level, const char* format, ...) __attribute__((format(printf, 2, 3)));

/// Writes an entry of level 2 that stays out of the array's event log.
void qrv_print_no_evt(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// Reports a broken assertion as an entry of level 2 and returns: the process isn't this library's
/// to end.
void qrv_panic(const char* format, ...) __attribute__((format(printf, 1, 2)));

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
