/// What a new device's stores hold: every leaf that a command reads or writes, with a sensible value.
#pragma once

namespace host {

/// As JSON documents. The time of the start, time.status.bootUpTime, is for the one who starts the device to add.
extern const char* const defaultSettings;
extern const char* const defaultStatus;

}  // namespace host
