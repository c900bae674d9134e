/// Writes factory data, for the factory tool. Reading is platform/factory_data.h.
#pragma once

namespace host {

/// Stores `text` under `key`, for good when it returns true. False with errno set: EINVAL for a key that is no plain
/// word of letters, digits, '_' and '-'.
bool writeFactoryData(const char* key, const char* text);

/// Writes what a new device's production would have written, where it is missing. False with errno set on failure.
bool prepareFactoryData();

}  // namespace host
