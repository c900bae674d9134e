#include "console/help.h"

#include "console/command_table.h"
#include "text/text.h"

#include <cstdio>
#include <cstring>

namespace {

// The published list of commands. It differs from the table ("Statusx", "AutoDispOn", no factory rows; oddity 4) and is
// not made from it. One text, since a table of pointers would take three times its room on a device.
constexpr char operatorList[] =
    "Blink CommaWait DispBtn HDMIAUD help InputStatus IPCFG IPDHCP IPStatic Lock LRAUD Mreset RelayAct RHostName "
    "RS232zone SHostName Status Type Unlock Version VOUT VOUTMute x1AVx2";

constexpr char technicianList[] =
    "APwrOffTime Aspect ASwFstTime ASwOutTime AutoDispOff AutoDispOn AutoSW Blink Broadcast BRT CliIPAddr CliMode "
    "CliPass CliPort CliUser CommaWait CSpara CtlType CTRST DispBtn EQ HDBTRS232 HDCPSet HDMIAUD help HUE HZoom "
    "InputBroadcast InputFormat InputStatus IPAddUser IPCFG IPDelUser IPDHCP IPLogin IPPort IPStatic IPTimeout Lock "
    "LRAUD Mreset PictureRst PrefTimg ProjSWMode ProjWarmUpT RelayAct RelayAuto RelayPulseT RelayType RHostName "
    "RS232para RS232zone SATRT ScalerPtMode SetFbVerify SetLabel SetStrgType SHARP SHostName Statusx System Type "
    "Unlock Update USBFallback Version VidOutRes VOUT VOUTMute VZoom x1AVx2 Zoom";

void printList(const char* words) {
    while (!isEmpty(words)) {
        const int length = static_cast<int>(std::strcspn(words, " "));
        std::printf("%.*s\r\n", length, words);
        words = skipSpaces(words + length);
    }
}

void printLists(const char* line) {
    if (equals(line, "help")) printList(operatorList);
    if (equals(line, "techelp")) printList(technicianList);
}

/// A name with more text behind it finds its row but prints nothing.
void printHelpText(const CommandEntry& entry, const char* name) {
    if (entry.hasOwnHelp() && std::strlen(name) == entry.compareLength()) printLine(entry.helpText);
}

}  // namespace

void helpAction(const Command& command) {
    if (isEmpty(command.argument)) return printLists(command.line);
    const CommandEntry* entry = findCommand(command.argument);
    if (entry == nullptr) return reject(command);
    printHelpText(*entry, command.argument);
}
