#include "console/command_table.h"

#include "console/broadcast.h"
#include "console/help.h"
#include "settings/feedback_printers.h"
#include "settings/integer_setting.h"
#include "settings/serial_setting.h"
#include "settings/switch_setting.h"
#include "settings/text_setting.h"
#include "settings/word_setting.h"
#include "system/accounts.h"
#include "system/debug_switch.h"
#include "system/display_diagnostic.h"
#include "system/factory_commands.h"
#include "system/front_panel_lock.h"
#include "system/idle_timeout_setting.h"
#include "system/ip_report.h"
#include "system/ip_settings.h"
#include "system/login_mode.h"
#include "system/maintenance.h"
#include "system/network_leaves.h"
#include "system/report.h"
#include "system/telnet_port.h"
#include "system/usb_route.h"
#include "video/cec_trigger.h"
#include "video/display_button.h"
#include "video/input_format.h"
#include "video/input_status.h"
#include "video/name_list.h"
#include "video/picture.h"
#include "video/scaler_gate.h"
#include "video/source_switch.h"
#include "video/trigger.h"

#include <array>
#include <cstring>

namespace {

// The action of a group row: its word with a missing or wrong index ("HDCPSet3 on", "EQ on") is refused by its family.
void rejectGroup(const Command& command) { reject(command); }

// The line reader keeps RS232zone to itself.
void doNothing(const Command& /*command*/) {}

// What a row's action needs to know, where it is more than a number.

constexpr SwitchRules inverted{.inverted = true};
constexpr SwitchRules shownByListener{.neverConfirms = true};
constexpr SwitchRules needsScaler{.gate = readScalerModeStatus};

constexpr Range equaliserRange{-12, 15};

constexpr SerialPort unitPort{"interface1"};
constexpr SerialPort receiverPort{"interface2"};
// Its own order of writing, and another branch's failure text: both are meant.
constexpr SerialPort hdbtPort{"interface3",
                              {databit, parity, stopbit, baudrate},
                              "publishEvent(controlUserConfigChanged SYSTEM_CMD_REQ_DEFAULT!)"};

constexpr Word edidSourceWords[] = {{"default"}, {"save1"}, {"int1"}, {"int2"}, {"int3"}, {"int4"}};
constexpr WordRules edidSources{.words = edidSourceWords, .confirm = printBracketed};

constexpr Word usbLogicWords[] = {{"follow usb"}, {"follow video"}, {"manual"}};
constexpr WordRules usbLogics{.words = usbLogicWords, .confirm = printBracketed};

constexpr Word usbHostWords[] = {{"local"}, {"remote"}};
constexpr WordRules usbHosts{.words = usbHostWords, .status = WordStatus::none};

// Switching off reports a failed event with another branch's text, which is meant.
constexpr Word usbFallbackWords[] = {
    {"on"},
    {.typed = "off", .publishFailureText = "publishEvent(videoUserConfigChanged SYSTEM_CMD_REQ_DEFAULT!)"},
};
constexpr WordRules usbFallbacks{.words = usbFallbackWords};

constexpr Word relayTypeWords[] = {{"pulse"}, {"closed"}};
constexpr WordRules relayTypes{.words = relayTypeWords};

constexpr Word relayStateWords[] = {{"open"}, {"close"}};
constexpr WordRules relayStates{.words = relayStateWords};

constexpr Word commandTypeWords[] = {{"ascii"}, {"hex"}};
constexpr WordRules commandTypes{.words = commandTypeWords};

constexpr Word clientModeWords[] = {{"login"}, {"non-login"}};
constexpr WordRules clientModes{.words = clientModeWords};

constexpr Word controlTypeWords[] = {{"ip"}, {"rs-232"}, {"cec"}};
constexpr WordRules controlTypes{.words = controlTypeWords};

constexpr Word hdcpModeWords[] = {{"on", "compliant"}, {"off", "non-compliant"}};
constexpr WordRules hdcpModes{
    .words = hdcpModeWords, .status = WordStatus::asTyped, .reportWriteFailure = perrorWriteFailure};

// Help texts and templates that several rows share.

constexpr char switchHelp[] = "xyAVxz    xyAVxz, y is 1~5, z is 1. Switch input to output.";
constexpr char hdcpSetHelp[] =
    "HDCPSet    HDCPSetx y, x is 1,2, y are on/off/sta. Show HDCP reporting mode of the HDMI input ports.";
constexpr char prefTimgHelp[] = "PrefTimg    PrefTimgx y, x is 1,2, y is 0 ~ 11, sta and list. Set prefer timing.";
constexpr char ipStaticHelp[] = "IPStatic    IPStatic <Adderss> <Netmask> <Gateway>. Sets a static IP address.";
constexpr char serialHelp[] =
    "RS232para    RS232parax [baudrate,databit,parity,stopbit], x is 1. Command for Output (receiver) baud rate.";
constexpr char equaliserHelp[] =
    "EQ    EQX Y zz, X is 1, Y is band of the EQ(values of 63, 85, 250, 1K, and 4K), zz is +/-/final EQ "
    "value(-12~15).  Raises EQ level by one increment.";
constexpr char trigCECHelp[] =
    "TrigCEC    TrigCECx y, x is 1, y are on/off/vol+/vol-/mute. Triggers the stored CEC command from rs-232 or IP "
    "command.";
constexpr char trigRSHelp[] =
    "TrigRS    TrigRSx y, x is 1, y on/off/vol+/vol-/mute, y is the command to execute. Triggers the stored RS-232 "
    "command.";
constexpr char trigIPHelp[] =
    "TrigIP    TrigIPx y, x is 1, y on/off/vol+/vol-/mute, y is the command to execute. Triggers the stored IP "
    "command.";
constexpr char aspectHelp[] = "Aspectx    Aspectx y, x is 1, y are follow/fill/letter box/sta. Sets the aspect ratio.";
constexpr char autoSwitchTimeHelp[] =
    "ASwOutTime    ASwOutTime x, x is 1~600 sec. Sets time period before auto switch engages fallback once source "
    "signal has been removed.";
constexpr char relayActHelp[] = "RelayAct    RelayActx y, x is 1~2, y are open/close/sta. Config Relay device setting.";
constexpr char inputStatusHelp[] = "InputStatus    InputStatus, Gets the active status of input port.";
constexpr char edidSetHelp[] =
    "EDIDMSet    EDIDMSetX Y, X is 1~2, Y are default/saveY, Y = memory : 1/intZ, Z = EDID int : 1~4. Sets the EDID "
    "of an input to the default EDID/previously saved EDID memory/one of the internal EDIDs.";
constexpr char debugModeHelp[] = "dbg977    dbg977. Trigger debug mode status.";
constexpr char inputFormatHelp[] = "InputFormat    InputFormatX, X are 1~2, Report the video format of the input.";
constexpr char sourceLeaf[] = R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"videoSrc":%d}}}}})";
constexpr char lockLeaf[] = R"({"system":{"key":{"lock":%s}}})";
constexpr char cecLeaf[] = R"({"control":{"displayControl":{"output1":{"triger":{"cec":"%s"}}}}})";
constexpr char hostNameLeaf[] = R"({"network":{"netbios":{"hostname":"%s"}}})";

// The first row that fits a line or a leaf is taken, so the order is part of the design: a name stands before its own
// beginnings, and a row that only lends its template to the listener behind the one that is typed.
constexpr CommandEntry rows[] = {
    // Help and report
    {"help", "Help   Help, Show command list. Help X, X = any command, Description command that designation.", "",
     helpAction, printNameAndInteger, plainRow},
    {"techelp", "", "", helpAction, printNameAndInteger, plainRow},
    {"Update", "Update    Update Update firmware mcu/vtx/rvrx.", "", updateFirmware, printNameAndText, markedRow},
    {"Version", "Version    VersionX, X are MCU/TRRX. Brings up the current firmware version.", "", reportVersion,
     printNameAndText, plainRow},
    {"System", "System    System X, X are sta/dev.Will display the status of the Unit.", "", reportSystem,
     printNameAndText, plainRow},
    {"Type", "Type    Brings up the model information.", R"({"system":{"model":"%s"}})", reportModel,
     printNameAndInteger, plainRow},
    {"Mreset", "Mreset    Sets matrix back to the default settings.", "", resetToDefaults, printNameAndInteger,
     markedRow},

    // Switching
    {"x1AVx1", switchHelp, sourceLeaf, switchSource, printSource, markedRow | unlistedRow},
    {"x2AVx1", switchHelp, sourceLeaf, switchSource, printSource, markedRow | unlistedRow},
    {"x3AVx1", switchHelp, sourceLeaf, switchSource, printSource, markedRow | unlistedRow},
    {"x4AVx1", switchHelp, sourceLeaf, switchSource, printSource, markedRow | unlistedRow},
    {"x5AVx1", switchHelp, sourceLeaf, switchSource, printSource, markedRow | unlistedRow},
    {"x1AVx2", switchHelp, "", rejectGroup, printNothing, markedRow},

    // Front panel, status and the far end
    {"Lock", "Lock    Locks the front panel of the matrix.", lockLeaf, setLock, printLock, markedRow},
    {"Unlock", "Unlock    Unlocks the front panel of the matrix.", lockLeaf, setLock, printLock, markedRow},
    {"Status", "Status    Status,  Shows what input is connected to selected output.", sourceLeaf, reportOutput,
     printNameAndText, markedRow},
    {"RS232zone",
     "RS232zone    RS232zone[y], y is the command sent to the HDBT device.Send commands to devices connected to the "
     "receiver RS-232 ports.",
     "", doNothing, printNameAndInteger, markedRow},

    // Inputs and output format
    {"HDCPSet1", hdcpSetHelp, R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"hdcpMode":"%s"}}}}})", setWord<hdcpModes>,
     printHdcpMode, markedRow | unlistedRow},
    {"HDCPSet2", hdcpSetHelp, R"({"video":{"vidIn":{"hdmiIn":{"hdmiIn1":{"hdcpMode":"%s"}}}}})", setWord<hdcpModes>,
     printHdcpMode, markedRow | unlistedRow},
    {"HDCPSet", hdcpSetHelp, "", rejectGroup, printNothing, markedRow},
    {"PrefTimg1", prefTimgHelp, R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"preferTiming":"%s"}}}}})",
     setName<preferredTiming>, printNameIndex<preferredTiming>, markedRow | unlistedRow},
    {"PrefTimg2", prefTimgHelp, R"({"video":{"vidIn":{"hdmiIn":{"hdmiIn1":{"preferTiming":"%s"}}}}})",
     setName<preferredTiming>, printNameIndex<preferredTiming>, markedRow | unlistedRow},
    {"PrefTimg list", prefTimgHelp, "", listPreferredTimings, printNothing, markedRow | unlistedRow},
    {"PrefTimg", prefTimgHelp, "", rejectGroup, printNothing, markedRow},
    {"VidOutRes",
     "VidOutRes    VidOutRes x, x is 0 ~ 22 or sta. Set output video format to any of the [XX] selectable "
     "resolutions. There should be a resolution list with numbers and resolutions.",
     R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"resolution":"%s"}}}}})", setName<outputResolution>,
     printNameIndex<outputResolution>, markedRow},

    // Network
    {"IPCFG", "IPCFG    Displays IP address configuration.", "", reportIpConfiguration, printNothing, plainRow},
    {"IPTimeout",
     "IPTimeout    IPTimeout x, x is never~3600 sec. Determines amount of seconds of inactivity before TCP/IP "
     "disconnects.",
     R"({"network":{"telnet":{"tcpipTimeout":%d}}})", setIdleTimeout, printIdleTimeout, markedRow},
    {"IPAddUser", "IPAddUser    IPAddUser [<name> <password>/sta]. Display a list of users.", "", addUser,
     printNameAndInteger, markedRow},
    {"IPDelUser", "IPDelUser    IPDelUser <name>. Delete a user from TCP/IP.", "", deleteUser, printNameAndInteger,
     markedRow},
    {"IPDHCP", "IPDHCP    IPDHCP x, x are on/off/sta. Sets the status of DHCP.", bootProtoLeaf, setDhcp, printDhcp,
     markedRow},
    {"IPStatic", ipStaticHelp, ipAddressLeaf, setStaticAddress, printStaticAddress, markedRow},
    {"IPStatic", ipStaticHelp, netmaskLeaf, setStaticAddress, printStaticNetmask, markedRow},
    {"IPStatic", ipStaticHelp, gatewayLeaf, setStaticAddress, printStaticGateway, markedRow},
    {"IPPort", "IPPort    IPPort x, x is 1~65535. Set the TCP/IP port.", telnetPortLeaf, setTelnetPort, printTelnetPort,
     markedRow},
    {"IPLogin", "IPLogin    IPLogin x, x are on/off/sta. Displays IPLogin status.", loginModeLeaf, setLoginMode,
     printOnOff, markedRow},

    // Broadcast and serial ports
    {"Broadcast", "Broadcast    Broadcast x, x are on/off/sta. Enables broadcast mode.", broadcastLeaf,
     setSwitch<shownByListener>, printOnOff, markedRow},
    {"CSpara",
     "CSpara    CSpara [baudrate,databit,parity,stopbit]. Sets the baudrate, data-length,parity and stop-bit for the "
     "matrix.",
     R"({"system":{"uart":{"interface1":{"baudrate":%d}}}})", setSerialPort<unitPort>, printSerialPort<unitPort>,
     markedRow},
    {"RS232para1", serialHelp, R"({"system":{"uart":{"interface2":{"baudrate":%d}}}})", setSerialPort<receiverPort>,
     printSerialPort<receiverPort>, markedRow | unlistedRow},
    {"RS232para", serialHelp, "", rejectGroup, printNothing, markedRow},

    // Audio
    {"VOUTMute",
     "VOUTMute    VOUTMute y, y are on/off/sta. Mute / unmute the volume for the specified output & get the mute "
     "status for the specified output.",
     R"({"audio":{"audOut":{"allMute":%s}}})", setSwitch, printOnOff, markedRow},
    {"VOUT", "VOUT    VOUT y, y are +/-/z/sta, z is 0 ~ -80. Raises zone volume by one increment.",
     R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"volume":%d}}}}})", setSteppedInteger<Range{-80, 0}>,
     printNameAndInteger, markedRow},
    {"EQ1 63", equaliserHelp, R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"eq63hz":%d}}}}})",
     setSteppedInteger<equaliserRange>, printNameAndInteger, markedRow | unlistedRow},
    {"EQ1 85", equaliserHelp, R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"eq85hz":%d}}}}})",
     setSteppedInteger<equaliserRange>, printNameAndInteger, markedRow | unlistedRow},
    {"EQ1 250", equaliserHelp, R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"eq250hz":%d}}}}})",
     setSteppedInteger<equaliserRange>, printNameAndInteger, markedRow | unlistedRow},
    {"EQ1 1K", equaliserHelp, R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"eq1khz":%d}}}}})",
     setSteppedInteger<equaliserRange>, printNameAndInteger, markedRow | unlistedRow},
    {"EQ1 4K", equaliserHelp, R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"eq4khz":%d}}}}})",
     setSteppedInteger<equaliserRange>, printNameAndInteger, markedRow | unlistedRow},
    {"EQ", equaliserHelp, "", rejectGroup, printNothing, markedRow},

    // Display control
    {"DispBtn",
     "DispBtn    DispBtn x, x = on/off/tog/mute/vol+/vol-/sta. Emulates turning the system on/off/mute/vol+/vol-.", "",
     pressDisplayButton, printNameAndText, markedRow},
    {"TrigCEC1", trigCECHelp, cecLeaf, triggerCec, printNameAndText, markedRow | unlistedRow},
    {"TrigCEC", trigCECHelp, cecLeaf, triggerCec, printNameAndText, markedRow},
    {"TrigRS1 on", trigRSHelp, "", pullTrigger<rs232, powerOn>, printTrigger, markedRow | unlistedRow},
    {"TrigRS1 off", trigRSHelp, "", pullTrigger<rs232, powerOff>, printTrigger, markedRow | unlistedRow},
    {"TrigRS1 vol+", trigRSHelp, "", ignoreTrigger, printTrigger, markedRow | unlistedRow},
    {"TrigRS1 vol-", trigRSHelp, "", ignoreTrigger, printTrigger, markedRow | unlistedRow},
    {"TrigRS1 mute", trigRSHelp, "", ignoreTrigger, printTrigger, markedRow | unlistedRow},
    {"TrigRS", trigRSHelp, "", rejectGroup, printNothing, markedRow},
    {"TrigIP1 on", trigIPHelp, "", pullTrigger<telnet, powerOn>, printTrigger, markedRow | unlistedRow},
    {"TrigIP1 off", trigIPHelp, "", pullTrigger<telnet, powerOff>, printTrigger, markedRow | unlistedRow},
    {"TrigIP1 vol+", trigIPHelp, "", ignoreTrigger, printTrigger, markedRow | unlistedRow},
    {"TrigIP1 vol-", trigIPHelp, "", ignoreTrigger, printTrigger, markedRow | unlistedRow},
    {"TrigIP1 mute", trigIPHelp, "", ignoreTrigger, printTrigger, markedRow | unlistedRow},
    {"TrigIP", trigIPHelp, "", rejectGroup, printNothing, markedRow},

    // Aspect and auto switching
    {"Aspect1", aspectHelp, R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"aspect":"%s"}}}}})", setWord<aspectRules>,
     printNameAndText, markedRow | unlistedRow},
    {"Aspect", aspectHelp, "", rejectGroup, printNothing, markedRow},
    {"AutoSW",
     "AutoSW    AutoSW x, x are on/off/sta. Sets auto switch mode on and off as well as display auto switching.",
     R"({"control":{"autoSwitch":{"autoSWEnable":%s}}})", setSwitch, printOnOff, markedRow},
    {"ASwOutTime", autoSwitchTimeHelp, R"({"control":{"autoSwitch":{"aswOutTime":%d}}})", setInteger<Range{3, 600}>,
     printNameAndInteger, markedRow},
    {"ASwFstTime", autoSwitchTimeHelp, R"({"control":{"autoSwitch":{"aswFstTime":%d}}})", setInteger<Range{10, 600}>,
     printNameAndInteger, markedRow},
    {"Blink", "Blink    Blink x, x are on/off/sta. Blinks an LED on the fron of the unit every second.",
     R"({"control":{"ledMode":%s}})", setSwitch, printOnOff, markedRow},

    // Controlled device
    {"CtlType", "CtlType    CtlType x, x are rs-232/ip/cec/sta. Sets /gets the control type.",
     R"({"control":{"displayControl":{"output1":{"controlType":"%s"}}}})", setWord<controlTypes>, printNameAndText,
     markedRow},
    {"CliMode", "CliMode    CliMode x, x are login/non-login/sta. Sets controlled device IP mode.",
     R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"mode":"%s"}}}}})", setWord<clientModes>,
     printNameAndText, plainRow},
    {"CliUser",
     "CliUser    CliUser x, x is any user name that is selected. If x field , left blank the username will be "
     "displayed. Sets IP controlled device's user name.",
     R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"username":"%s"}}}}})", setCutText<40>,
     printNameAndText, plainRow},
    {"CliPass",
     "CliPass    CliPass x, x is any user password that is selected. If x field, is left blank the user password will "
     "be displayed.Sets IP controlled device's user password.",
     R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"password":"%s"}}}}})", setCutText<40>,
     printNameAndText, plainRow},
    {"CliIPAddr", "CliIPAddr    CliIPAddr <Adderss>. Sets controlled device's IP address.",
     R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"ipAddr":"%s"}}}}})", setAddress,
     printNameAndText, plainRow},
    {"CliPort",
     "CliPort    CliPort x, x are the telnet port or sta : display the port number. Sets controlled device's telnet "
     "port.",
     R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"port":%d}}}}})",
     setInteger<Range{1, 65536}, readScalerModeStatus>, printNameAndInteger, plainRow},
    {"HDBTRS232", "HDBTRS232    Set RX device HDBaseT's RS232 parameter.",
     R"({"system":{"uart":{"interface3":{"baudrate":%d}}}})", setSerialPort<hdbtPort>, printSerialPort<hdbtPort>,
     markedRow},

    // Picture
    {"PictureRst", "PictureRst    Run picture reset.", R"({"video":{"colorSetting":{"pictureRst":%d}}})", resetPicture,
     printName, markedRow},
    {"Zoom", "Zoom    Zoom x, x are on/off/sta. Sets overscan status.",
     R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"zoomEnable":%s}}}}})", setSwitch<needsScaler>, printOnOff,
     markedRow},
    {"HZoom", "HZoom    HZoom x, x is 0 ~ 50 or sta. Adjust overscan horizontal size.",
     R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"hZoom":%d}}}}})", setInteger<Range{0, 50}, readScalerModeStatus>,
     printNameAndInteger, markedRow},
    {"VZoom", "VZoom    VZoom x, x is 0 ~ 50 or sta. Adjust overscan vertical size.",
     R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"vZoom":%d}}}}})", setInteger<Range{0, 50}, readScalerModeStatus>,
     printNameAndInteger, markedRow},
    {"BRT", "BRT    BRT x, x is 0 ~ 60 or sta. Sets picture brightness.", R"({"video":{"colorSetting":{"brt":%d}}})",
     setInteger<Range{0, 60}, readScalerModeStatus>, printNameAndInteger, markedRow},
    {"CTRST", "CTRST    CTRST x, x is 0 ~ 60 or sta. Sets picture contrast.",
     R"({"video":{"colorSetting":{"ctrst":%d}}})", setInteger<Range{0, 60}, readScalerModeStatus>, printNameAndInteger,
     markedRow},
    {"SATRT", "SATRT    SATRT x, x is 0 ~ 60 or sta. Sets picture saturation.",
     R"({"video":{"colorSetting":{"satrt":%d}}})", setInteger<Range{0, 60}, readScalerModeStatus>, printNameAndInteger,
     markedRow},
    {"HUE", "HUE    HUE x, x is 0 ~ 60 or sta. Sets picture hue.", R"({"video":{"colorSetting":{"hue":%d}}})",
     setInteger<Range{0, 60}, readScalerModeStatus>, printNameAndInteger, markedRow},
    {"SHARP", "SHARP    SHARP x, x is 0 ~ 60 or sta. Sets picture sharpness.",
     R"({"video":{"colorSetting":{"sharp":%d}}})", setInteger<Range{0, 60}, readScalerModeStatus>, printNameAndInteger,
     markedRow},

    // Projector, relay and outputs
    {"APwrOffTime", "APwrOffTime    APwrOffTime x, x is 15 ~ 3600 or sta. Set auto power off times.",
     R"({"control":{"displayControl":{"output1":{"timer":{"autoPwrOff":%d}}}}})", setInteger<Range{5, 3600}>,
     printNameAndInteger, markedRow},
    {"ProjWarmUpT",
     "ProjWarmUpT    ProjWarmUpT x, x is 10 ~ 300 or sta. Sets projector bulb warming up timer in second.",
     R"({"control":{"displayControl":{"output1":{"timer":{"warmUp":%d}}}}})", setInteger<Range{5, 300}>,
     printNameAndInteger, markedRow},
    {"ProjSWMode", "ProjSWMode    ProjSWMode x, x is 10 ~ 300 or sta. Sets projector bulb cool-down timer in second.",
     R"({"control":{"displayControl":{"output1":{"timer":{"lampCoolDown":%d}}}}})", setInteger<Range{5, 300}>,
     printNameAndInteger, markedRow},
    {"SetFbVerify", "SetFbVerify    SetFbVerify x, x are on/off/sta. Sets feedback verify status.",
     R"({"control":{"displayControl":{"output1":{"feedbackVerify":%s}}}})", setSwitch, printOnOff, markedRow},
    {"SetStrgType", "SetStrgType    SetStrgType x, x are ascii/hex/sta. Set to show string command type.",
     R"({"control":{"displayControl":{"output1":{"triger":{"command":{"sendMode":"%s"}}}}}})", setWord<commandTypes>,
     printNameAndText, markedRow},
    {"CommaWait", "CommaWait    CommaWait x, x are on/off/sta. Set the comma delay function.",
     R"({"control":{"displayControl":{"output1":{"triger":{"command":{"commandWait":%s}}}}}})", setSwitch, printOnOff,
     markedRow},
    {"RelayAct1", relayActHelp, R"({"control":{"displayControl":{"output1":{"relay":{"relayAct1":"%s"}}}}})",
     setWord<relayStates>, printNameAndText, markedRow | unlistedRow},
    {"RelayAct2", relayActHelp, R"({"control":{"displayControl":{"output1":{"relay":{"relayAct2":"%s"}}}}})",
     setWord<relayStates>, printNameAndText, markedRow | unlistedRow},
    {"RelayAct", relayActHelp, "", rejectGroup, printNothing, markedRow},
    {"RelayAuto", "RelayAuto    RelayAuto x, x are on/off/sta. Sets behavior status of the Relay.",
     R"({"control":{"displayControl":{"output1":{"relay":{"relayAuto":%s}}}}})", setSwitch, printOnOff, markedRow},
    {"RelayType", "RelayType    RelayType x, x are pulse/closed/sta. Sets type status of the Relay.",
     R"({"control":{"displayControl":{"output1":{"relay":{"relayType":"%s"}}}}})", setWord<relayTypes>,
     printNameAndText, markedRow},
    {"RelayPulseT", "RelayPulseT    RelayPulseT x, x 1 ~ 30 or sta. Sets Relay pulse time.",
     R"({"control":{"displayControl":{"output1":{"relay":{"relayPulseT":%d}}}}})", setInteger<Range{1, 30}>,
     printNameAndInteger, markedRow},
    {"HDMIAUD", "HDMIAUD    HDMIAUD x, x are on/off/sta. Sets the HDMI audio output status.",
     R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"audioMute":%s}}}}})", setSwitch<inverted>, printInvertedOnOff,
     markedRow},
    {"LRAUD", "LRAUD    LRAUD x, x are on/off/sta. Sets the analog L/R audio output status.",
     R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"mute":%s}}}}})", setSwitch<inverted>, printInvertedOnOff,
     markedRow},

    // Inputs, scaler and label
    {"InputStatus1", inputStatusHelp, "", reportInput, printInputStatus, markedRow | unlistedRow},
    {"InputStatus2", inputStatusHelp, "", reportInput, printInputStatus, markedRow | unlistedRow},
    {"InputStatus", inputStatusHelp, R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"connected":%s}}}}})", reportBothInputs,
     printInputStatus, markedRow},
    {"InputStatus", inputStatusHelp, R"({"video":{"vidIn":{"hdmiIn":{"hdmiIn1":{"connected":%s}}}}})", reportBothInputs,
     printInputStatus, markedRow},
    {"InputBroadcast", "InputBroadcast    InputBroadcast x,  x are on/off/sta.  Sets the input status to broadcast.",
     R"({"system":{"inputBroadcast":%s}})", setSwitch<shownByListener>, printOnOff, markedRow | unlistedRow},
    {"ScalerPtMode", "ScalerPtMode    ScalerPtMode x, x are on/off/sta. Set the scaler pass-through mode.",
     R"({"video":{"vidProcess":{"scaler":{"scalerMode":%s}}}})", setSwitch<inverted>, printInvertedOnOff, markedRow},
    {"SetLabel boot", "SetLabel x[y], x is boot, Y is string(max byte=30). Set user string.",
     R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"osd":{"text":{"content":"%s"}}}}}}})", setLabel, printLabel,
     markedRow},

    // Maintenance and USB
    {"Reboot", "Reboot    Reboot. System reboot.", "", rebootDevice, printNothing, markedRow},
    {"USBSW",
     "USBSW x, x=0,1,2,3. 0:USB_B_TO_LOCAL_USB_A, 1:USB_B_TO_OUTA, 2:USB_B_TO_VALENS_UART_UPDATE, 3:USB_B_TO977_UPDATE",
     "", routeUsb, printNothing, markedRow},
    {"debug", "debug    debug y, y are on/off, Turns debug on or off.", R"({"system":{"debug":%s}})", switchDebug,
     printNothing, markedRow},
    {"USBFallback", "USBFallback x, x is on/off/sta. Sets the fallback mode of the USB.",
     R"({"control":{"usbLogic":{"usbFallBack":"%s"}}})", setWord<usbFallbacks>, printNameAndText, markedRow},
    {"USBHostRoute", "USBHostRoute X, X are local/remote. Set the routing status of the USB host.",
     R"({"control":{"localUsbLogic":{"manualHost":"%s"}}})", setWord<usbHosts>, printUsbHostRoute, markedRow},
    {"USBHostLogic", "USBHostLogic X, X are follow usb/follow video/manual. Sets the logic status.",
     R"({"control":{"localUsbLogic":{"switchMode":"%s"}}})", setWord<usbLogics>, printNameAndText, markedRow},

    // EDID
    {"EDIDMSet1", edidSetHelp, R"({"video":{"vidProcess":{"EDID":{"edidMSet1":"%s"}}}})", setWord<edidSources>,
     printNameAndText, markedRow},
    {"EDIDMSet2", edidSetHelp, R"({"video":{"vidProcess":{"EDID":{"edidMSet2":"%s"}}}})", setWord<edidSources>,
     printNameAndText, markedRow},
    {"EDIDMSet", edidSetHelp, "", rejectGroup, printNothing, markedRow},
    {"EDIDOut1", "EDIDOut     EDIDOutX memeY, X is 1~2, Y is 1~8. Copies EDID information from output.",
     R"({"video":{"vidProcess":{"EDID":{"edidOutMem1":%d}}}})", copyOutputEdid, printEdidMemory, markedRow},

    // Debug, factory data and diagnostics
    {"dbg977", debugModeHelp, R"({"system":{"dbg977":%s}})", toggleChipDebug, printNothing, markedRow},
    {"kxdebug", debugModeHelp, R"({"system":{"systemDebugMode":"%s"}})", setShortText<15>, printNameAndText, markedRow},
    {"SQrnMac", "SQrnMac    SQrnMac x, x is 0~FF. Write MAC Address to eeprom.", "MacAddr", writeMacAddress,
     printNameAndText, markedRow},
    {"RQrnMac", "RqrnMac    Run picture reset.", "MacAddr", reportMacAddress, printNameAndText, markedRow},
    {"SQrnSN", "SQrnSN    SQrnMac x, x is 0~FF. Write serial number to eeprom.", "SerialNumber", writeSerialNumber,
     printNameAndText, markedRow},
    {"RQrnSN", "RQrnSN    Read serial number from  eeprom.", "SerialNumber", reportFactoryText, printNameAndText,
     markedRow},
    {"RQrnVID", "", "ManufactoryID", reportFactoryText, printNameAndText, markedRow},
    {"RQrnPID", "", "ProductID", reportFactoryText, printNameAndText, markedRow},
    {"SQrnPID", "", "ProductID", writeProductId, printNameAndText, markedRow},
    {"Zebulax", "", "", runDiagnostic, printNameAndText, markedRow},

    // Host name and input formats
    {"SHostName", "SHostName    SHostName Y,  Y is name string(max byte=15). Sets the hostname on the network.",
     hostNameLeaf, setShortText<15>, printNameAndText, markedRow},
    {"RHostName", "RHostName    Show the hostname on the network.", hostNameLeaf, reportText, printNameAndText,
     markedRow},
    {"InputFormat1", inputFormatHelp, R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"videoTiming":{"stable":%s}}}}}})",
     reportInputFormat, printInputFormat, markedRow},
    {"InputFormat2", inputFormatHelp, R"({"video":{"vidIn":{"hdmiIn":{"hdmiIn1":{"videoTiming":{"stable":%s}}}}}})",
     reportInputFormat, printInputFormat, markedRow},
    {"InputFormat", inputFormatHelp, "", rejectGroup, printNothing, markedRow},
};

constexpr std::size_t countConversions(std::string_view leaf) {
    std::size_t count = 0;
    for (const char c : leaf) count += c == '%' ? 1 : 0;
    return count;
}

consteval bool everyRowIsSound() {
    for (const CommandEntry& row : rows) {
        const std::string_view leaf = row.leaf;
        if (row.compareLength() != std::string_view(row.name).size()) return false;
        if (leaf.starts_with('{') && countConversions(leaf) != 1) return false;
    }
    return true;
}

/// True when no row hides a later one whose name it only begins.
consteval bool longerNamesStandFirst() {
    for (std::size_t later = 0; later < std::size(rows); ++later) {
        const std::string_view name = rows[later].name;
        for (std::size_t earlier = 0; earlier < later; ++earlier) {
            const std::string_view hiding = rows[earlier].name;
            if (name.starts_with(hiding) && name != hiding) return false;
        }
    }
    return true;
}

static_assert(std::size(rows) == 130);
static_assert(everyRowIsSound(), "a compare length or a template's one conversion is wrong");
static_assert(longerNamesStandFirst(), "a row stands before a longer name that it begins");

}  // namespace

std::span<const CommandEntry> commandTable() { return rows; }

const CommandEntry* findCommand(const char* text) {
    for (const CommandEntry& row : rows) {
        if (std::strncmp(text, row.name, row.compareLength()) == 0) return &row;
    }
    return nullptr;
}

const CommandEntry* findLeaf(const char* matchText) {
    for (const CommandEntry& row : rows) {
        if (std::strstr(row.leaf, matchText) != nullptr) return &row;
    }
    return nullptr;
}
