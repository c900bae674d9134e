#include "tools/command_reference/topics.h"

#include "text/text.h"

namespace {

constexpr Topic allTopics[] = {
    {"Help and reports", "help"},
    {"Switching", "x1AVx1"},
    {"Front panel, status and the far end", "Lock"},
    {"Inputs and output format", "HDCPSet1"},
    {"Network and accounts", "IPCFG"},
    {"Broadcast and serial ports", "Broadcast"},
    {"Audio", "VOUTMute"},
    {"Display control", "DispBtn"},
    {"Aspect and automatic switching", "Aspect1"},
    {"The controlled device", "CtlType"},
    {"Picture", "PictureRst"},
    {"Projector, relays and outputs", "APwrOffTime"},
    {"Input status, scaler and label", "InputStatus1"},
    {"Maintenance and USB", "Reboot"},
    {"EDID", "EDIDMSet1"},
    {"Debug, factory data and diagnostics", "dbg977"},
    {"Host name and input formats", "SHostName"},
};

constexpr Example examples[] = {
    {"help", "help VOUT"},
    {"techelp", "techelp Lock"},
    {"Version", "VersionMCU"},
    {"System", "System sta"},
    {"RS232zone", "RS232zone[PWR ON\\r]"},
    {"IPTimeout", "IPTimeout 600"},
    {"IPAddUser", "IPAddUser alice secret1"},
    {"IPDelUser", "IPDelUser guest"},
    {"IPDHCP", "IPDHCP off"},
    {"IPStatic", "IPStatic 192.0.2.30 255.255.255.0 192.0.2.1"},
    {"IPPort", "IPPort 2424"},
    {"IPLogin", "IPLogin sta"},
    {"CSpara", "CSpara [9600,8,0,1]"},
    {"RS232para1", "RS232para1 [19200,8,0,1]"},
    {"HDBTRS232", "HDBTRS232 [19200,8,0,1]"},
    {"DispBtn", "DispBtn on"},
    {"TrigCEC1", "TrigCEC1 on"},
    {"TrigCEC", "TrigCEC off"},
    {"Aspect1", "Aspect1 fill"},
    {"CliUser", "CliUser alice"},
    {"CliPass", "CliPass secret1"},
    {"CliIPAddr", "CliIPAddr 192.0.2.50"},
    {"SetLabel boot", "SetLabel boot[48 69]"},
    {"USBSW", "USBSW 1"},
    {"debug", "debug MCU"},
    {"EDIDOut1", "EDIDOut1 mem1"},
    {"kxdebug", "kxdebug trace"},
    {"SQrnMac", "SQrnMac 02-00-00-AB-CD-EF"},
    {"SQrnSN", "SQrnSN SN2001"},
    {"SQrnPID", "SQrnPID P7"},
    {"Zebulax", "Zebulax on"},
    {"SHostName", "SHostName stage"},
};

}  // namespace

std::span<const Topic> topics() { return allTopics; }

const char* exampleFor(const char* row) {
    for (const Example& example : examples) {
        if (equals(example.row, row)) return example.line;
    }
    return nullptr;
}
