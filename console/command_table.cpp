#include "console/command_table.h"

#include "console/help.h"
#include "settings/integer_setting.h"
#include "settings/label.h"
#include "settings/serial_setting.h"
#include "settings/switch_setting.h"
#include "settings/text_setting.h"
#include "settings/word_setting.h"
#include "settings/write_path.h"
#include "system/accounts.h"
#include "system/factory.h"
#include "system/network.h"
#include "system/network_leaves.h"
#include "system/orders.h"
#include "system/report.h"
#include "video/display_button.h"
#include "video/inputs.h"
#include "video/picture.h"
#include "video/trigger.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace {

// The action of a group row: its word with a missing or wrong index ("HDCPSet3 on", "EQ on") is refused by its family.
void rejectGroup(const Command& command) { reject(command); }

// RS232zone is handled by the line reader.
void doNothing(const Command& /*command*/) {}

// The families' parameters that are more than a number.

constexpr SerialPort unitPort{"interface1"};
constexpr SerialPort receiverPort{"interface2"};
// Its own order of writing, and another branch's failure text (oddity 29).
constexpr SerialPort hdbtPort{"interface3",
                              {databit, parity, stopbit, baudrate},
                              "publishEvent(controlUserConfigChanged SYSTEM_CMD_REQ_DEFAULT!)"};

constexpr WordRules inBrackets{.isConfirmedInBrackets = true};
constexpr WordRules withoutStatus{.status = WordStatus::none};
constexpr WordRules hdcpRules{.status = WordStatus::asTyped, .perrorsWriteFailure = true};

constexpr Word edidSources[] = {{"default"}, {"save1"}, {"int1"}, {"int2"}, {"int3"}, {"int4"}};
constexpr Word usbLogics[] = {{"follow usb"}, {"follow video"}, {"manual"}};
constexpr Word usbHosts[] = {{"local"}, {"remote"}};
// Switching off reports a failed event with another branch's text (oddity 29).
constexpr WordReplies fallbackOffReplies{.publishFailureText =
                                             "publishEvent(videoUserConfigChanged SYSTEM_CMD_REQ_DEFAULT!)"};
constexpr Word usbFallbacks[] = {{"on"}, {.typed = "off", .replies = &fallbackOffReplies}};
constexpr Word relayTypes[] = {{"pulse"}, {"closed"}};
constexpr Word relayStates[] = {{"open"}, {"close"}};
constexpr Word commandTypes[] = {{"ascii"}, {"hex"}};
constexpr Word clientModes[] = {{"login"}, {"non-login"}};
constexpr Word controlTypes[] = {{"ip"}, {"rs-232"}, {"cec"}};
constexpr Word hdcpModes[] = {{"on", "compliant"}, {"off", "non-compliant"}};

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

// The first row that fits a line or a leaf is taken, so the order is part of the design: a name stands before its own
// beginnings, and a row that is there only for its template, which the listener prints by, behind the row that is
// typed.
constexpr CommandEntry rows[] = {
    // Help and report
    {"help", "Help   Help, Show command list. Help X, X = any command, Description command that designation.", "",
     order<helpAction>, plainRow},
    {"techelp", "", "", order<helpAction>, plainRow},
    {"Update", "Update    Update Update firmware mcu/vtx/rvrx.", "", order<updateFirmware>, markedRow},
    {"Version", "Version    VersionX, X are MCU/TRRX. Brings up the current firmware version.", "",
     order<reportVersion>, plainRow},
    {"System", "System    System X, X are sta/dev.Will display the status of the Unit.", "", order<reportSystem>,
     plainRow},
    {"Type", "Type    Brings up the model information.", modelLeaf, modelReport, plainRow},
    {"Mreset", "Mreset    Sets matrix back to the default settings.", "", order<resetToDefaults>, markedRow},

    // Switching
    {"x1AVx1", switchHelp, sourceLeaf, sourceSwitch, markedRow | unlistedRow},
    {"x2AVx1", switchHelp, sourceLeaf, sourceSwitch, markedRow | unlistedRow},
    {"x3AVx1", switchHelp, sourceLeaf, sourceSwitch, markedRow | unlistedRow},
    {"x4AVx1", switchHelp, sourceLeaf, sourceSwitch, markedRow | unlistedRow},
    {"x5AVx1", switchHelp, sourceLeaf, sourceSwitch, markedRow | unlistedRow},
    {"x1AVx2", switchHelp, "", order<rejectGroup>, markedRow},

    // Front panel, status and the far end
    {"Lock", "Lock    Locks the front panel of the matrix.", lockLeaf, frontPanelLock, markedRow},
    {"Unlock", "Unlock    Unlocks the front panel of the matrix.", lockLeaf, frontPanelLock, markedRow},
    {"Status", "Status    Status,  Shows what input is connected to selected output.", sourceLeaf, outputReport,
     markedRow},
    {"RS232zone",
     "RS232zone    RS232zone[y], y is the command sent to the HDBT device.Send commands to devices connected to the "
     "receiver RS-232 ports.",
     "", order<doNothing>, markedRow},

    // Inputs and output format
    {"HDCPSet1", hdcpSetHelp, R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"hdcpMode":"%s"}}}}})",
     word<hdcpModes, hdcpRules>, markedRow | unlistedRow},
    {"HDCPSet2", hdcpSetHelp, R"({"video":{"vidIn":{"hdmiIn":{"hdmiIn1":{"hdcpMode":"%s"}}}}})",
     word<hdcpModes, hdcpRules>, markedRow | unlistedRow},
    {"HDCPSet", hdcpSetHelp, "", order<rejectGroup>, markedRow},
    {"PrefTimg1", prefTimgHelp, R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"preferTiming":"%s"}}}}})",
     word<preferredTimings, shownByNumber>, markedRow | unlistedRow},
    {"PrefTimg2", prefTimgHelp, R"({"video":{"vidIn":{"hdmiIn":{"hdmiIn1":{"preferTiming":"%s"}}}}})",
     word<preferredTimings, shownByNumber>, markedRow | unlistedRow},
    {"PrefTimg list", prefTimgHelp, "", order<listPreferredTimings>, markedRow | unlistedRow},
    {"PrefTimg", prefTimgHelp, "", order<rejectGroup>, markedRow},
    {"VidOutRes",
     "VidOutRes    VidOutRes x, x is 0 ~ 22 or sta. Set output video format to any of the [XX] selectable "
     "resolutions. There should be a resolution list with numbers and resolutions.",
     R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"resolution":"%s"}}}}})", outputResolution, markedRow},

    // Network
    {"IPCFG", "IPCFG    Displays IP address configuration.", "", order<reportIpConfiguration>, plainRow},
    {"IPTimeout",
     "IPTimeout    IPTimeout x, x is never~3600 sec. Determines amount of seconds of inactivity before TCP/IP "
     "disconnects.",
     timeoutLeaf, idleTimeout, markedRow},
    {"IPAddUser", "IPAddUser    IPAddUser [<name> <password>/sta]. Display a list of users.", "", order<addUser>,
     markedRow},
    {"IPDelUser", "IPDelUser    IPDelUser <name>. Delete a user from TCP/IP.", "", order<deleteUser>, markedRow},
    {"IPDHCP", "IPDHCP    IPDHCP x, x are on/off/sta. Sets the status of DHCP.", bootProtoLeaf, dhcp, markedRow},
    {"IPStatic", ipStaticHelp, ipAddressLeaf, staticAddress<printStaticAddress>, markedRow},
    {"IPStatic", ipStaticHelp, netmaskLeaf, staticAddress<printStaticNetmask>, markedRow},
    {"IPStatic", ipStaticHelp, gatewayLeaf, staticAddress<printStaticGateway>, markedRow},
    {"IPPort", "IPPort    IPPort x, x is 1~65535. Set the TCP/IP port.", telnetPortLeaf, telnetPort, markedRow},
    {"IPLogin", "IPLogin    IPLogin x, x are on/off/sta. Displays IPLogin status.", loginModeLeaf, loginMode,
     markedRow},

    // Broadcast and serial ports
    {"Broadcast", "Broadcast    Broadcast x, x are on/off/sta. Enables broadcast mode.", broadcastLeaf,
     unconfirmedSwitch, markedRow},
    {"CSpara",
     "CSpara    CSpara [baudrate,databit,parity,stopbit]. Sets the baudrate, data-length,parity and stop-bit for the "
     "matrix.",
     R"({"system":{"uart":{"interface1":{"baudrate":%d}}}})", serialPort<unitPort>, markedRow},
    {"RS232para1", serialHelp, R"({"system":{"uart":{"interface2":{"baudrate":%d}}}})", serialPort<receiverPort>,
     markedRow | unlistedRow},
    {"RS232para", serialHelp, "", order<rejectGroup>, markedRow},

    // Audio
    {"VOUTMute",
     "VOUTMute    VOUTMute y, y are on/off/sta. Mute / unmute the volume for the specified output & get the mute "
     "status for the specified output.",
     R"({"audio":{"audOut":{"allMute":%s}}})", onOffSwitch, markedRow},
    {"VOUT", "VOUT    VOUT y, y are +/-/z/sta, z is 0 ~ -80. Raises zone volume by one increment.",
     R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"volume":%d}}}}})", steppedInteger<-80, 0>, markedRow},
    {"EQ1 63", equaliserHelp, R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"eq63hz":%d}}}}})",
     steppedInteger<-12, 15>, markedRow | unlistedRow},
    {"EQ1 85", equaliserHelp, R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"eq85hz":%d}}}}})",
     steppedInteger<-12, 15>, markedRow | unlistedRow},
    {"EQ1 250", equaliserHelp, R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"eq250hz":%d}}}}})",
     steppedInteger<-12, 15>, markedRow | unlistedRow},
    {"EQ1 1K", equaliserHelp, R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"eq1khz":%d}}}}})",
     steppedInteger<-12, 15>, markedRow | unlistedRow},
    {"EQ1 4K", equaliserHelp, R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"eq4khz":%d}}}}})",
     steppedInteger<-12, 15>, markedRow | unlistedRow},
    {"EQ", equaliserHelp, "", order<rejectGroup>, markedRow},

    // Display control
    {"DispBtn",
     "DispBtn    DispBtn x, x = on/off/tog/mute/vol+/vol-/sta. Emulates turning the system on/off/mute/vol+/vol-.", "",
     order<pressDisplayButton>, markedRow},
    {"TrigCEC1", trigCECHelp, cecLeaf, cecTrigger, markedRow | unlistedRow},
    {"TrigCEC", trigCECHelp, cecLeaf, cecTrigger, markedRow},
    {"TrigRS1 on", trigRSHelp, "", order<pullTrigger<rs232, powerOn>>, markedRow | unlistedRow},
    {"TrigRS1 off", trigRSHelp, "", order<pullTrigger<rs232, powerOff>>, markedRow | unlistedRow},
    {"TrigRS1 vol+", trigRSHelp, "", order<ignoreTrigger>, markedRow | unlistedRow},
    {"TrigRS1 vol-", trigRSHelp, "", order<ignoreTrigger>, markedRow | unlistedRow},
    {"TrigRS1 mute", trigRSHelp, "", order<ignoreTrigger>, markedRow | unlistedRow},
    {"TrigRS", trigRSHelp, "", order<rejectGroup>, markedRow},
    {"TrigIP1 on", trigIPHelp, "", order<pullTrigger<telnet, powerOn>>, markedRow | unlistedRow},
    {"TrigIP1 off", trigIPHelp, "", order<pullTrigger<telnet, powerOff>>, markedRow | unlistedRow},
    {"TrigIP1 vol+", trigIPHelp, "", order<ignoreTrigger>, markedRow | unlistedRow},
    {"TrigIP1 vol-", trigIPHelp, "", order<ignoreTrigger>, markedRow | unlistedRow},
    {"TrigIP1 mute", trigIPHelp, "", order<ignoreTrigger>, markedRow | unlistedRow},
    {"TrigIP", trigIPHelp, "", order<rejectGroup>, markedRow},

    // Aspect and auto switching
    {"Aspect1", aspectHelp, R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"aspect":"%s"}}}}})",
     word<aspectWords, WordRules{}, readScalerModeStatus>, markedRow | unlistedRow},
    {"Aspect", aspectHelp, "", order<rejectGroup>, markedRow},
    {"AutoSW",
     "AutoSW    AutoSW x, x are on/off/sta. Sets auto switch mode on and off as well as display auto switching.",
     R"({"control":{"autoSwitch":{"autoSWEnable":%s}}})", onOffSwitch, markedRow},
    {"ASwOutTime", autoSwitchTimeHelp, R"({"control":{"autoSwitch":{"aswOutTime":%d}}})", integer<3, 600>, markedRow},
    {"ASwFstTime", autoSwitchTimeHelp, R"({"control":{"autoSwitch":{"aswFstTime":%d}}})", integer<10, 600>, markedRow},
    {"Blink", "Blink    Blink x, x are on/off/sta. Blinks an LED on the fron of the unit every second.",
     R"({"control":{"ledMode":%s}})", onOffSwitch, markedRow},

    // Controlled device
    {"CtlType", "CtlType    CtlType x, x are rs-232/ip/cec/sta. Sets /gets the control type.", controlTypeLeaf,
     word<controlTypes>, markedRow},
    {"CliMode", "CliMode    CliMode x, x are login/non-login/sta. Sets controlled device IP mode.",
     R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"mode":"%s"}}}}})", word<clientModes>,
     plainRow},
    {"CliUser",
     "CliUser    CliUser x, x is any user name that is selected. If x field , left blank the username will be "
     "displayed. Sets IP controlled device's user name.",
     R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"username":"%s"}}}}})", cutText<40>, plainRow},
    {"CliPass",
     "CliPass    CliPass x, x is any user password that is selected. If x field, is left blank the user password will "
     "be displayed.Sets IP controlled device's user password.",
     R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"password":"%s"}}}}})", cutText<40>, plainRow},
    {"CliIPAddr", "CliIPAddr    CliIPAddr <Adderss>. Sets controlled device's IP address.",
     R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"ipAddr":"%s"}}}}})", dottedAddress, plainRow},
    {"CliPort",
     "CliPort    CliPort x, x are the telnet port or sta : display the port number. Sets controlled device's telnet "
     "port.",
     R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"port":%d}}}}})",
     integer<1, 65536, readScalerModeStatus>, plainRow},  // oddity 24
    {"HDBTRS232", "HDBTRS232    Set RX device HDBaseT's RS232 parameter.",
     R"({"system":{"uart":{"interface3":{"baudrate":%d}}}})", serialPort<hdbtPort>, markedRow},

    // Picture
    {"PictureRst", "PictureRst    Run picture reset.", R"({"video":{"colorSetting":{"pictureRst":%d}}})", pictureReset,
     markedRow},
    {"Zoom", "Zoom    Zoom x, x are on/off/sta. Sets overscan status.",
     R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"zoomEnable":%s}}}}})", gatedSwitch<readScalerModeStatus>,
     markedRow},
    {"HZoom", "HZoom    HZoom x, x is 0 ~ 50 or sta. Adjust overscan horizontal size.",
     R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"hZoom":%d}}}}})", integer<0, 50, readScalerModeStatus>, markedRow},
    {"VZoom", "VZoom    VZoom x, x is 0 ~ 50 or sta. Adjust overscan vertical size.",
     R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"vZoom":%d}}}}})", integer<0, 50, readScalerModeStatus>, markedRow},
    {"BRT", "BRT    BRT x, x is 0 ~ 60 or sta. Sets picture brightness.", R"({"video":{"colorSetting":{"brt":%d}}})",
     integer<0, 60, readScalerModeStatus>, markedRow},
    {"CTRST", "CTRST    CTRST x, x is 0 ~ 60 or sta. Sets picture contrast.",
     R"({"video":{"colorSetting":{"ctrst":%d}}})", integer<0, 60, readScalerModeStatus>, markedRow},
    {"SATRT", "SATRT    SATRT x, x is 0 ~ 60 or sta. Sets picture saturation.",
     R"({"video":{"colorSetting":{"satrt":%d}}})", integer<0, 60, readScalerModeStatus>, markedRow},
    {"HUE", "HUE    HUE x, x is 0 ~ 60 or sta. Sets picture hue.", R"({"video":{"colorSetting":{"hue":%d}}})",
     integer<0, 60, readScalerModeStatus>, markedRow},
    {"SHARP", "SHARP    SHARP x, x is 0 ~ 60 or sta. Sets picture sharpness.",
     R"({"video":{"colorSetting":{"sharp":%d}}})", integer<0, 60, readScalerModeStatus>, markedRow},

    // Projector, relay and outputs
    {"APwrOffTime", "APwrOffTime    APwrOffTime x, x is 15 ~ 3600 or sta. Set auto power off times.",
     R"({"control":{"displayControl":{"output1":{"timer":{"autoPwrOff":%d}}}}})", integer<5, 3600>, markedRow},
    {"ProjWarmUpT",
     "ProjWarmUpT    ProjWarmUpT x, x is 10 ~ 300 or sta. Sets projector bulb warming up timer in second.",
     R"({"control":{"displayControl":{"output1":{"timer":{"warmUp":%d}}}}})", integer<5, 300>, markedRow},
    {"ProjSWMode", "ProjSWMode    ProjSWMode x, x is 10 ~ 300 or sta. Sets projector bulb cool-down timer in second.",
     R"({"control":{"displayControl":{"output1":{"timer":{"lampCoolDown":%d}}}}})", integer<5, 300>, markedRow},
    {"SetFbVerify", "SetFbVerify    SetFbVerify x, x are on/off/sta. Sets feedback verify status.",
     R"({"control":{"displayControl":{"output1":{"feedbackVerify":%s}}}})", onOffSwitch, markedRow},
    {"SetStrgType", "SetStrgType    SetStrgType x, x are ascii/hex/sta. Set to show string command type.",
     R"({"control":{"displayControl":{"output1":{"triger":{"command":{"sendMode":"%s"}}}}}})", word<commandTypes>,
     markedRow},
    {"CommaWait", "CommaWait    CommaWait x, x are on/off/sta. Set the comma delay function.", commandWaitLeaf,
     onOffSwitch, markedRow},
    {"RelayAct1", relayActHelp, R"({"control":{"displayControl":{"output1":{"relay":{"relayAct1":"%s"}}}}})",
     word<relayStates>, markedRow | unlistedRow},
    {"RelayAct2", relayActHelp, R"({"control":{"displayControl":{"output1":{"relay":{"relayAct2":"%s"}}}}})",
     word<relayStates>, markedRow | unlistedRow},
    {"RelayAct", relayActHelp, "", order<rejectGroup>, markedRow},
    {"RelayAuto", "RelayAuto    RelayAuto x, x are on/off/sta. Sets behavior status of the Relay.",
     R"({"control":{"displayControl":{"output1":{"relay":{"relayAuto":%s}}}}})", onOffSwitch, markedRow},
    {"RelayType", "RelayType    RelayType x, x are pulse/closed/sta. Sets type status of the Relay.",
     R"({"control":{"displayControl":{"output1":{"relay":{"relayType":"%s"}}}}})", word<relayTypes>, markedRow},
    {"RelayPulseT", "RelayPulseT    RelayPulseT x, x 1 ~ 30 or sta. Sets Relay pulse time.",
     R"({"control":{"displayControl":{"output1":{"relay":{"relayPulseT":%d}}}}})", integer<1, 30>, markedRow},
    {"HDMIAUD", "HDMIAUD    HDMIAUD x, x are on/off/sta. Sets the HDMI audio output status.",
     R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"audioMute":%s}}}}})", invertedSwitch, markedRow},
    {"LRAUD", "LRAUD    LRAUD x, x are on/off/sta. Sets the analog L/R audio output status.",
     R"({"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"mute":%s}}}}})", invertedSwitch, markedRow},

    // Inputs, scaler and label
    {"InputStatus1", inputStatusHelp, "", order<reportInput>, markedRow | unlistedRow},
    {"InputStatus2", inputStatusHelp, "", order<reportInput>, markedRow | unlistedRow},
    {"InputStatus", inputStatusHelp, R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"connected":%s}}}}})", inputStatus,
     markedRow},
    {"InputStatus", inputStatusHelp, R"({"video":{"vidIn":{"hdmiIn":{"hdmiIn1":{"connected":%s}}}}})", inputStatus,
     markedRow},
    {"InputBroadcast", "InputBroadcast    InputBroadcast x,  x are on/off/sta.  Sets the input status to broadcast.",
     inputBroadcastLeaf, unconfirmedSwitch, markedRow | unlistedRow},
    {"ScalerPtMode", "ScalerPtMode    ScalerPtMode x, x are on/off/sta. Set the scaler pass-through mode.",
     scalerModeLeaf, invertedSwitch, markedRow},
    {"SetLabel boot", "SetLabel x[y], x is boot, Y is string(max byte=30). Set user string.",
     R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"osd":{"text":{"content":"%s"}}}}}}})", label, markedRow},

    // Maintenance and USB
    {"Reboot", "Reboot    Reboot. System reboot.", "", order<rebootDevice>, markedRow},
    {"USBSW",
     "USBSW x, x=0,1,2,3. 0:USB_B_TO_LOCAL_USB_A, 1:USB_B_TO_OUTA, 2:USB_B_TO_VALENS_UART_UPDATE, 3:USB_B_TO977_UPDATE",
     "", order<routeUsb>, markedRow},
    {"debug", "debug    debug y, y are on/off, Turns debug on or off.", R"({"system":{"debug":%s}})", debugSwitch,
     markedRow},
    {"USBFallback", "USBFallback x, x is on/off/sta. Sets the fallback mode of the USB.",
     R"({"control":{"usbLogic":{"usbFallBack":"%s"}}})", word<usbFallbacks>, markedRow},
    {"USBHostRoute", "USBHostRoute X, X are local/remote. Set the routing status of the USB host.",
     R"({"control":{"localUsbLogic":{"manualHost":"%s"}}})", word<usbHosts, withoutStatus>, markedRow},
    {"USBHostLogic", "USBHostLogic X, X are follow usb/follow video/manual. Sets the logic status.",
     R"({"control":{"localUsbLogic":{"switchMode":"%s"}}})", word<usbLogics, inBrackets>, markedRow},

    // EDID
    {"EDIDMSet1", edidSetHelp, R"({"video":{"vidProcess":{"EDID":{"edidMSet1":"%s"}}}})", word<edidSources, inBrackets>,
     markedRow},
    {"EDIDMSet2", edidSetHelp, R"({"video":{"vidProcess":{"EDID":{"edidMSet2":"%s"}}}})", word<edidSources, inBrackets>,
     markedRow},
    {"EDIDMSet", edidSetHelp, "", order<rejectGroup>, markedRow},
    {"EDIDOut1", "EDIDOut     EDIDOutX memeY, X is 1~2, Y is 1~8. Copies EDID information from output.",
     R"({"video":{"vidProcess":{"EDID":{"edidOutMem1":%d}}}})", edidCopy, markedRow},

    // Debug, factory data and diagnostics
    {"dbg977", debugModeHelp, R"({"system":{"dbg977":%s}})", chipDebug, markedRow},
    {"kxdebug", debugModeHelp, R"({"system":{"systemDebugMode":"%s"}})", shortText<15>, markedRow},
    {"SQrnMac", "SQrnMac    SQrnMac x, x is 0~FF. Write MAC Address to eeprom.", "MacAddr",
     factoryData<writeMacAddress>, markedRow},
    {"RQrnMac", "RqrnMac    Run picture reset.", "MacAddr", factoryData<reportMacAddress>, markedRow},
    {"SQrnSN", "SQrnSN    SQrnMac x, x is 0~FF. Write serial number to eeprom.", "SerialNumber",
     factoryData<writeSerialNumber>, markedRow},
    {"RQrnSN", "RQrnSN    Read serial number from  eeprom.", "SerialNumber", factoryData<reportFactoryText>, markedRow},
    {"RQrnVID", "", "ManufactoryID", factoryData<reportFactoryText>, markedRow},
    {"RQrnPID", "", "ProductID", factoryData<reportFactoryText>, markedRow},
    {"SQrnPID", "", "ProductID", factoryData<writeProductId>, markedRow},
    {"Zebulax", "", "", order<runDiagnostic>, markedRow},

    // Host name and input formats
    {"SHostName", "SHostName    SHostName Y,  Y is name string(max byte=15). Sets the hostname on the network.",
     hostNameLeaf, shortText<15>, markedRow},
    {"RHostName", "RHostName    Show the hostname on the network.", hostNameLeaf, textReport, markedRow},
    {"InputFormat1", inputFormatHelp, R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"videoTiming":{"stable":%s}}}}}})",
     inputFormat, markedRow},
    {"InputFormat2", inputFormatHelp, R"({"video":{"vidIn":{"hdmiIn":{"hdmiIn1":{"videoTiming":{"stable":%s}}}}}})",
     inputFormat, markedRow},
    {"InputFormat", inputFormatHelp, "", order<rejectGroup>, markedRow},
};

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

/// A leaf up to its first colon: {"audio":
constexpr std::string_view firstKeyOf(std::string_view leaf) { return {leaf.data(), leaf.find(':') + 1}; }

/// For each row the next one whose leaf has the same first key; the number of rows where there is none.
consteval auto chainRows() {
    std::array<std::uint8_t, std::size(rows)> chains{};
    for (std::size_t row = 0; row < std::size(rows); ++row) {
        std::size_t next = row + 1;
        while (next < std::size(rows) && firstKeyOf(rows[next].leaf) != firstKeyOf(rows[row].leaf)) ++next;
        chains[row] = static_cast<std::uint8_t>(next);
    }
    return chains;
}

constexpr auto nextOfKey = chainRows();

/// True when no leaf has another's first key further inside, where a text that begins with it would be found as well.
/// Each key is looked for once, because compilers limit the steps of a constant expression.
consteval bool firstKeysStandFirst() {
    std::array<bool, std::size(rows) + 1> isLater{};
    for (std::size_t row = 0; row < std::size(rows); ++row) {
        isLater[nextOfKey[row]] = true;
        const std::string_view key = firstKeyOf(rows[row].leaf);
        if (isLater[row] || key.empty()) continue;
        for (const CommandEntry& other : rows)
            if (std::string_view(other.leaf).find(key, 1) != std::string_view::npos) return false;
    }
    return true;
}

static_assert(std::size(rows) >= 130, "a command of the device is missing: put its row back");
static_assert(longerNamesStandFirst(), "a row hides a later one, whose name it begins: move the longer name before it");
static_assert(std::size(rows) <= UINT8_MAX, "nextOfKey wants a wider type");
static_assert(firstKeysStandFirst(), "findLeaf() would miss a leaf: let it look into all rows");

}  // namespace

std::span<const CommandEntry> commandTable() { return rows; }

const CommandEntry* findCommand(const char* text) {
    for (const CommandEntry& row : rows) {
        if (*text == *row.name && std::strncmp(text, row.name, row.compareLength()) == 0) return &row;
    }
    return nullptr;
}

const CommandEntry* findLeaf(const char* matchText) {
    const std::string_view key = firstKeyOf(matchText);
    std::size_t row = 0;
    while (row < std::size(rows) && std::strncmp(rows[row].leaf, key.data(), key.size()) != 0) ++row;
    const bool isInside = key.empty() || row == std::size(rows);
    for (row = isInside ? 0 : row; row < std::size(rows); row = isInside ? row + 1 : nextOfKey[row])
        if (std::strstr(rows[row].leaf, matchText) != nullptr) return &rows[row];
    return nullptr;
}
