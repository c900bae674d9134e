// The keys and the screen of the front panel.
import { change, device, on, press, publish, read } from "./device.js";
import { byId, make, write } from "./dom.js";
import { formatName } from "./names.js";
import { inputs, outputName, streamOf } from "./signal.js";

const source = "video.vidOut.hdmiOut.hdmiOutA.videoSrc";
const volume = "audio.audOut.analogOut1.audioSinkControl.volume";
const mute = "audio.audOut.allMute";
const power = "control.displayControl.output1.buttonControl.power";
const usb = "control.localUsbLogic.manualHost";
const lock = "system.key.lock";

const setting = (path) => read("settings", path);
const louder = (step) => Math.max(-80, Math.min(0, setting(volume) + step));

/** A key: its name, the letter that presses it, what it does, and when its light is on. */
const keys = [
    ["Vol −", "-", () => press(volume, louder(-1))],
    ["Vol +", "+", () => press(volume, louder(1))],
    ["Mute", "m", () => press(mute, !setting(mute)), () => setting(mute)],
    ["Display", "d", () => press(power, setting(power) === "on" ? "off" : "on"), () => setting(power) === "on"],
    ["USB", "u", () => press(usb, setting(usb) === "local" ? "remote" : "local"), () => setting(usb) === "remote"],
    ["Lock", "l", () => change("settings", lock, !setting(lock)), () => setting(lock)],
];

const inputKeys = [1, 2, 3, 4, 5].map((number) => [
    inputs[number - 1]?.name ?? String(number),
    String(number),
    () => press(source, number),
    () => setting(source) === number,
]);

function makeKey([name, letter, act, isLit], place) {
    const light = make("i", { class: "light" });
    const key = make(
        "button",
        { class: "key", "aria-keyshortcuts": letter, title: `Key ${letter}`, onclick: act },
        ...(isLit ? [light] : []),
        make("span", {}, name),
    );
    if (isLit) on("state", () => key.setAttribute("aria-pressed", Boolean(isLit())));
    place.append(key);
}

/** Letters press keys wherever nothing is typed into. */
function listenToLetters() {
    document.addEventListener("keydown", (event) => {
        if (event.ctrlKey || event.altKey || event.metaKey || event.target.closest("input, select, textarea, .xterm"))
            return;
        const key = [...keys, ...inputKeys].find(([, letter]) => letter === event.key);
        if (key) key[2]();
    });
}

function meter(db) {
    const lit = Math.round((db + 80) / 4);
    return "▮".repeat(lit) + "▯".repeat(20 - lit);
}

function showScreen() {
    const number = setting(source);
    const stream = streamOf(number);
    write(
        byId("screen1"),
        `IN ${number}  ${inputs[number - 1]?.name ?? "no socket"}  ${stream ? formatName(stream) : "no signal"}`,
    );
    write(
        byId("screen2"),
        setting("video.vidProcess.scaler.scalerMode") ? `OUT   ${outputName()}  scaled` : "OUT   as it comes in",
    );
    write(byId("screen3"), setting(mute) ? "VOL   muted" : `VOL   ${setting(volume)} dB ${meter(setting(volume))}`);
}

/** Dark ones are faults. */
const lamps = [
    ["Live", () => device.isLive],
    ["Ethernet", () => read("status", "network.eth0.linkStatus")],
    ["HDBaseT", () => read("status", "network.valens.linkStatus")],
    ["Controller", () => read("status", "system.slaveMcu.isReady")],
];

function showHeader() {
    write(byId("model"), read("status", "device.modelName") ?? "Front panel");
    write(
        byId("address"),
        `${setting("network.netbios.hostname")}  ·  telnet ${location.hostname} ${setting("network.telnet.telnetPort")}`,
    );
    document.title = `${setting("network.netbios.hostname")} – front panel`;
    document.body.classList.toggle("locked", setting(lock) === true);
    document.body.classList.toggle("lost", !device.isLive);
}

function ask(question, action) {
    if (confirm(question)) action();
}

/** What is done to the whole device stands on its card, not among the keys. */
function addDeviceButtons() {
    const reset = () =>
        ask("Put every setting back to its default?", () => publish("UpgradeSlaveVersionQuery", "Sys Default\r"));
    const restart = () =>
        ask("Restart the device? Every session ends.", () => publish("UpgradeSlaveVersionQuery", "Sys Reboot\r"));
    byId("device").append(
        make(
            "div",
            { class: "actions" },
            make("button", { id: "reset", onclick: reset }, "Factory reset"),
            make("button", { id: "reboot", onclick: restart }, "Reboot"),
        ),
    );
}

export function start() {
    inputKeys.forEach((key) => makeKey(key, byId("inputs")));
    keys.forEach((key) => makeKey(key, byId("keys")));
    for (const [name, isLit] of lamps) {
        const item = make("li", { class: "lamp" }, name);
        byId("lamps").append(item);
        on("state", () => item.classList.toggle("lit", isLit() === true));
    }
    on("state", () => (device.isLive && showScreen(), showHeader()));
    addDeviceButtons();
    listenToLetters();
}
