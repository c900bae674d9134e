// The one place that says how a leaf is shown: its store and path, its card, its name, its picture. A new leaf needs
// one line here. What is not here is found in the tree of all leaves.
import { band, choice, contact, lamp, number, onOff, slider, text, label } from "./pictures.js";
import { resolutions, timings, usbModes } from "./names.js";

const out = "video.vidOut.hdmiOut.hdmiOutA";
const hdbt = "video.vidIn.hdbtIn.hdbtIn1";
const hdmi = "video.vidIn.hdmiIn.hdmiIn1";
const sound = "audio.audOut.analogOut1.audioSinkControl";
const screen = "control.displayControl.output1";

export const leaves = [
    ["settings", `${sound}.volume`, "audio", "Volume", slider(-80, 0, "dB")],
    ["settings", "audio.audOut.allMute", "audio", "Mute all", onOff()],
    ["settings", `${sound}.mute`, "audio", "Analog L/R", onOff({ inverted: true })],
    ["settings", `${out}.audioMute`, "audio", "HDMI audio", onOff({ inverted: true })],
    ["settings", `${sound}.eq63hz`, "equaliser", "63", band(-12, 15)],
    ["settings", `${sound}.eq85hz`, "equaliser", "85", band(-12, 15)],
    ["settings", `${sound}.eq250hz`, "equaliser", "250", band(-12, 15)],
    ["settings", `${sound}.eq1khz`, "equaliser", "1 k", band(-12, 15)],
    ["settings", `${sound}.eq4khz`, "equaliser", "4 k", band(-12, 15)],

    ["settings", `${out}.resolution`, "output", "Format", choice(resolutions)],
    ["settings", "video.vidProcess.scaler.scalerMode", "output", "Scaler", onOff()],
    ["settings", `${out}.aspect`, "output", "Aspect", choice(["follow", "fill", "letter box"])],
    ["settings", `${out}.zoomEnable`, "output", "Overscan", onOff()],
    ["settings", `${out}.hZoom`, "output", "Horizontal", slider(0, 50)],
    ["settings", `${out}.vZoom`, "output", "Vertical", slider(0, 50)],
    ["settings", `${out}.osd.text.content`, "output", "Label", label()],
    ["settings", `${hdbt}.preferTiming`, "output", "Timing 1", choice(timings)],
    ["settings", `${hdmi}.preferTiming`, "output", "Timing 2", choice(timings)],

    ["settings", "video.colorSetting.brt", "colour", "Brightness", slider(0, 60)],
    ["settings", "video.colorSetting.ctrst", "colour", "Contrast", slider(0, 60)],
    ["settings", "video.colorSetting.satrt", "colour", "Saturation", slider(0, 60)],
    ["settings", "video.colorSetting.hue", "colour", "Hue", slider(0, 60)],
    ["settings", "video.colorSetting.sharp", "colour", "Sharpness", slider(0, 60)],
    ["settings", "control.autoSwitch.autoSWEnable", "colour", "Auto switch", onOff()],
    ["settings", "control.autoSwitch.aswOutTime", "colour", "Switch after", slider(1, 600, "s")],

    ["settings", `${screen}.buttonControl.power`, "display", "Power", onOff({ on: "on", off: "off" })],
    ["settings", `${screen}.controlType`, "display", "Control", choice(["rs-232", "ip", "cec"])],
    ["status", `${screen}.transmission.rs232`, "display", "RS-232", lamp("sending", "idle")],
    ["status", `${screen}.transmission.telnet`, "display", "Network", lamp("sending", "idle")],
    ["status", "mcu.lastCec", "display", "Last CEC", text()],
    ["settings", `${screen}.remoteNetworkDevice.ipAddr`, "display", "Address", text()],
    ["settings", `${screen}.remoteNetworkDevice.port`, "display", "Port", number(1, 65536)],

    ["settings", `${screen}.relay.relayAct1`, "ports", "Relay 1", contact()],
    ["settings", `${screen}.relay.relayAct2`, "ports", "Relay 2", contact()],
    ["settings", `${screen}.relay.relayAuto`, "ports", "Automatic", onOff()],
    ["settings", `${screen}.relay.relayType`, "ports", "Kind", choice(["closed", "pulse"])],
    ["settings", `${screen}.relay.relayPulseT`, "ports", "Pulse", slider(1, 30, "s")],
    ["settings", "control.localUsbLogic.manualHost", "ports", "USB host", choice(["local", "remote"])],
    ["settings", "control.localUsbLogic.switchMode", "ports", "USB follows", choice(usbModes)],
    ["settings", "control.usbLogic.usbFallBack", "ports", "USB fallback", onOff({ on: "on", off: "off" })],
    ["status", "mcu.usbRoute", "ports", "USB route", text()],

    ["status", "network.eth0.linkStatus", "network", "Ethernet", lamp("link", "no link")],
    ["status", "network.eth0.macAddr", "network", "MAC", text()],
    ["settings", "network.netbios.hostname", "network", "Host name", text()],
    ["settings", "network.eth0.bootProto", "network", "Addresses", choice(["DHCP", "STATIC"])],
    ["status", "network.eth0.ipSettings.ipaddr", "network", "Address", text()],
    ["status", "network.eth0.ipSettings.netmask", "network", "Netmask", text()],
    ["status", "network.eth0.ipSettings.gateway", "network", "Gateway", text()],
    ["settings", "network.telnet.telnetPort", "network", "Telnet port", number(1, 65535)],
    ["settings", "network.telnet.tcpipTimeout", "network", "Time-out", number(0, 3600)],
    ["settings", "network.telnet.loginMode", "network", "Login", onOff()],

    ["settings", "system.broadcast", "device", "Broadcast", onOff()],
    ["settings", "system.inputBroadcast", "device", "Input broadcast", onOff()],
    ["status", "system.slaveMcu.isReady", "device", "Slave controller", onOff()],
    ["settings", "control.ledMode", "device", "Blink", onOff()],
    ["settings", "system.dbg977", "device", "Chip debug", onOff()],
    ["status", "system.update.progressEvent.isOn", "device", "Update", lamp("running", "none")],
];
