/// The device logger. It never writes to the connection of a console.
#ifndef PLATFORM_LOGGER_H
#define PLATFORM_LOGGER_H

#ifdef __cplusplus
extern "C" {
#endif

/// Log categories: indexes into __logLevels.
enum { LOG_CATEGORY_CONSOLE = 0, LOG_CATEGORY_COUNT = 1 };

/// Severities the console uses.
enum { LOG_LEVEL_ERROR = 5, LOG_LEVEL_TRACE = 8 };

/// For each category the highest level that is written now; 0 writes nothing. The device changes it while programs
/// run, so it is read anew before every line.
extern const volatile int* __logLevels;

/// Writes one line. `format` is a printf format. From any thread.
void __printLog(int level, const char* format, ...) __attribute__((format(printf, 2, 3)));

#ifdef __cplusplus
}
#endif
#endif
