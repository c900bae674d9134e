/// The printers that rows of any floor share: each shows a changed value as the command line of its row.
#pragma once

#include "command/command.h"

/// For rows that have nothing to show.
void printNothing(const char* rowName, const ChangedValue& value);

/// "name text" and "name number".
void printNameAndText(const char* rowName, const ChangedValue& value);
void printNameAndInteger(const char* rowName, const ChangedValue& value);

/// "name on" for 1 and "name off" for 0; the inverted one the other way round.
void printOnOff(const char* rowName, const ChangedValue& value);
void printInvertedOnOff(const char* rowName, const ChangedValue& value);

/// "name on" for "compliant", "name off" for "non-compliant".
void printHdcpMode(const char* rowName, const ChangedValue& value);

/// "Lock" for 1 and "Unlock" for 0, whichever row is named.
void printLock(const char* rowName, const ChangedValue& value);

/// "name mem1" to "name mem8" for 1 to 8.
void printEdidMemory(const char* rowName, const ChangedValue& value);

/// The row's name alone.
void printName(const char* rowName, const ChangedValue& value);

/// "name[label]", the label travelling as blank-separated hexadecimal character codes ("48 69" is Hi). "%%" in it is a
/// percent sign; any other conversion stands for nothing.
void printLabel(const char* rowName, const ChangedValue& value);

/// "name local" or "name remote".
void printUsbHostRoute(const char* rowName, const ChangedValue& value);
