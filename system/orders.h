/// The small orders to the rest of the device: the upgrade service, the system service, the controller, the log, the
/// keys of the front panel. Other daemons carry them out.
#pragma once

#include "command/family.h"

/// Mreset: back to the default settings. The consoles print the reset when the upgrade service reports it.
void resetToDefaults(const Command& command);

/// Reboot, announced to the upgrade service; with an argument it answers that it is refused and restarts the device
/// all the same, unannounced.
void rebootDevice(const Command& command);

/// Update: starts a firmware update unless one is running.
void updateFirmware(const Command& command);

/// debug on | off: the device's log; debug MCU: the controller's.
void switchDebug(const Command& command);

/// dbg977: into and out of the debug mode of the 977 chip.
void toggleChipDebug(const Command& command);

inline constexpr Family debugSwitch{.action = switchDebug, .kind = LeafKind::truthValue};
inline constexpr Family chipDebug{.action = toggleChipDebug, .kind = LeafKind::truthValue};

/// USBSW 0..3: where the USB-B port leads: to the local USB-A port, to output A, to the HDBaseT chip's UART, to the 977
/// chip. What does not begin with a number counts as 0.
void routeUsb(const Command& command);

/// Zebulax on | off: asks the display daemon for its diagnostic picture and says so on standard error. Silent
/// otherwise, on a wrong argument as well.
void runDiagnostic(const Command& command);

/// Lock, Unlock, and "Lock sta", which answers "Lock" whatever the state. The whole line must read so.
void setLock(const Command& command);

/// "Lock" for 1 and "Unlock" for 0, whichever row is named.
void printLock(const Change& change);

inline constexpr Family frontPanelLock{.action = setLock, .printer = printLock, .kind = LeafKind::truthValue};
