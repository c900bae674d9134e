// The way of the picture: what is plugged into the two inputs, and which of them the output shows.
import { device, on, read, report, send, wrap } from "./device.js";
import { byId, draw, make, write } from "./dom.js";
import { formatName, sources } from "./names.js";

export const inputs = [
    { name: "HDBT", path: "video.vidIn.hdbtIn.hdbtIn1" },
    { name: "HDMI", path: "video.vidIn.hdmiIn.hdmiIn1" },
];

/** The output's format without what its list says beside it. */
export const outputName = () =>
    (read("settings", "video.vidOut.hdmiOut.hdmiOutA.resolution") ?? "").replace(/ .*/, "").replace("x", "×");

/** What an input receives; undefined while there is nothing stable. */
export function streamOf(number) {
    const input = inputs[number - 1] && read("status", inputs[number - 1].path);
    if (!input?.connected || !input.videoTiming?.stable) return undefined;
    return { ...input.videoTiming, colorDepth: input.colorDepth, colorMode: input.colorMode };
}

const plugged = (input, { colorDepth, colorMode, ...timing }) =>
    report(wrap(input.path, { connected: true, colorDepth, colorMode, videoTiming: { ...timing, stable: true } }));

const pulled = (input) => report(wrap(input.path, { connected: false, videoTiming: { stable: false } }));

/** The far transmitter is gone, and its signal with it; or both are back. */
function setLink(isUp) {
    const [hdbt] = inputs;
    const input = wrap(hdbt.path, { connected: isUp, videoTiming: { stable: isUp } });
    return report({ network: { valens: { linkStatus: isUp } }, ...input });
}

const shapes = ["M6 4H34V20H25V23H15V20H6Z", "M4 6H36V13L31 19H9L4 13Z"];

function makePlug(input, number) {
    const shape = draw("path", { d: shapes[number - 1] });
    const socket = draw("svg", { viewBox: "0 0 40 24", "aria-hidden": "true", class: "socket" }, shape);
    const isPlugged = () => read("status", input.path)?.connected === true;
    const swap = () => (isPlugged() ? pulled(input) : plugged(input, sources[2]));
    const attributes = { class: "plug", id: `plug${number}`, role: "switch", "aria-label": `${input.name} plugged in` };
    const plug = make("button", { ...attributes, onclick: swap }, socket);
    on("state", () => plug.setAttribute("aria-checked", isPlugged()));
    return plug;
}

/** What the input receives, also where it is none of the sources that can be chosen. */
function makeFormat(input, number) {
    const other = make("option", { value: "other" });
    const options = sources.map((source, i) => make("option", { value: i }, formatName(source)));
    const format = make("select", { "aria-label": `${input.name} format` }, other, ...options);
    const unstable = wrap(input.path, { videoTiming: { stable: false } });
    format.addEventListener("change", () =>
        format.value === "other" ? report(unstable) : plugged(input, sources[format.value]),
    );
    on("state", () => {
        const stream = streamOf(number);
        const known = stream ? sources.findIndex((source) => formatName(source) === formatName(stream)) : -1;
        write(other, stream && known < 0 ? formatName(stream) : "no signal");
        format.value = known < 0 ? "other" : String(known);
    });
    return format;
}

function makeInput(input, number) {
    const lead = make("i", { class: "lead" });
    on("state", () => {
        lead.classList.toggle("shown", read("settings", "video.vidOut.hdmiOut.hdmiOutA.videoSrc") === number);
        lead.classList.toggle("carrying", Boolean(streamOf(number)));
    });
    const name = make("b", {}, `${number} · ${input.name}`);
    return make("div", { class: "input" }, makePlug(input, number), name, makeFormat(input, number), lead);
}

function makeOutput() {
    const name = make("b", {}, "Out");
    const resolution = make("span", { class: "value" });
    on("state", () => write(resolution, outputName()));
    return make("div", { class: "out" }, name, resolution);
}

function makeLinkSwitch() {
    const button = make("button", { id: "lose", onclick: () => setLink(!read("status", "network.valens.linkStatus")) });
    on("state", () => write(button, read("status", "network.valens.linkStatus") ? "Lose the link" : "Link up again"));
    return button;
}

/** The display that the panel plays at the address in the settings. */
function makeDisplaySwitch() {
    const moods = ["answers", "refuses", "off"];
    const buttons = moods.map((mood) => make("button", { onclick: () => send("display", mood), value: mood }, mood));
    on("state", () => buttons.forEach((b) => b.setAttribute("aria-pressed", b.value === device.display)));
    return make(
        "div",
        { class: "row" },
        make("span", { class: "name" }, "At its address"),
        make("span", { class: "segments", role: "group", "aria-label": "Display on the network" }, ...buttons),
    );
}

export function start() {
    byId("signal").append(
        make(
            "div",
            { class: "path" },
            make("div", { class: "sockets" }, ...inputs.map((input, i) => makeInput(input, i + 1))),
            makeOutput(),
        ),
        make("div", { class: "actions" }, makeLinkSwitch()),
    );
    byId("display").append(makeDisplaySwitch());
}
