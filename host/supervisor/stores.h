/// What the device does with its stores itself: their start and the telnet port in them.
#pragma once

namespace host {

/// Makes the settings store ready and the status store new, before any other process uses them. False with the reason
/// reported.
bool prepareStores();

/// The stored telnet port; `fallback` where none is stored.
int storedTelnetPort(int fallback);

/// Stores the port, if it is another one than the stored.
void storeTelnetPort(int port);

}  // namespace host
