/// The line parameters of the serial interfaces: baud rate, data bits, parity and stop bits in one step.
#pragma once

#include "command/family.h"

#include <array>

enum SerialField { baudrate, databit, parity, stopbit };

inline constexpr int serialFieldCount = 4;

struct SerialPort {
    const char* interface;  ///< its key in the settings
    std::array<SerialField, serialFieldCount> writeOrder = {baudrate, databit, parity, stopbit};
    const char* publishFailureText = nullptr;  ///< null: the branch's own
};

/// "[baudrate,databit,parity,stopbit]" or "sta". The line is confirmed before anything is written, when broadcast is
/// off; the change is made 200 ms later.
void setSerialPort(const Command& command, const SerialPort& port);

/// Prints the "sta" line from the store, whichever value changed.
void printSerialPort(const char* rowName, const SerialPort& port);

template <const SerialPort& port>
void setSerialPort(const Command& command) {
    setSerialPort(command, port);
}

template <const SerialPort& port>
void printSerialPort(const Change& change) {
    printSerialPort(change.rowName, port);
}

/// The row's leaf is the baud rate of the port, whose change shows all four.
template <const SerialPort& port>
inline constexpr Family serialPort{
    .action = setSerialPort<port>, .printer = printSerialPort<port>, .kind = LeafKind::number};
