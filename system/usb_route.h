/// Where the USB-B port leads.
#pragma once

#include "command/command.h"

/// USBSW 0..3: to the local USB-A port, to output A, to the HDBaseT chip's UART, to the 977 chip. What does not begin
/// with a number counts as 0.
void routeUsb(const Command& command);
