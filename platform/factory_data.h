/// Factory data: what production wrote once ("MacAddr", "SerialNumber", "FirmwareVer", ...). From any thread.
#ifndef PLATFORM_FACTORY_DATA_H
#define PLATFORM_FACTORY_DATA_H

#ifdef __cplusplus
extern "C" {
#endif

/// Puts a copy of the text stored under `key` into `*text`, which the caller frees with free(); NULL when there is
/// none. Returns 0 when a text was found.
int factory_read_data(const char* key, char** text);

#ifdef __cplusplus
}
#endif
#endif
