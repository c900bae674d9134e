// The running strip of what happens on the device, the newest at its end.
import { on } from "./device.js";
import { byId, make, write } from "./dom.js";

const kinds = { typed: "typed", event: "event", call: "call", display: "display" };
const mostLines = 400;

const list = make("ol", { tabindex: "0", "aria-label": "What happens, the newest last" });
const words = make("input", { type: "search", placeholder: "filter", "aria-label": "Show only what holds this text" });
const pause = make("button", { id: "pause", "aria-pressed": "false" }, "Pause");
const waiting = [];
const hidden = new Set();

/** The bytes that a request has sent to the display, as they are read aloud. */
function bytesOf(hexWords) {
    return hexWords
        .trim()
        .split(/\s+/)
        .map((word) => {
            const code = parseInt(word, 16);
            return code >= 0x20 && code < 0x7f ? String.fromCharCode(code) : `\\x${word.toLowerCase()}`;
        })
        .join("");
}

const short = (text) => (text.length > 40 ? `${text.slice(0, 16)}…` : text);

/** What a request for the display sends, how often and when. */
function sentBy(request) {
    const { sendData, sendcount, fiveSecDelay } = JSON.parse(request).displayControl;
    const times = sendcount > 1 ? `  ${sendcount} times` : "";
    return bytesOf(sendData) + times + (fiveSecDelay > 0 ? `  after ${5 * fiveSecDelay} s` : "");
}

/** Each leaf of a document by the end of its path, with its value. */
function leavesOf(tree, path = []) {
    const isLeaf = tree === null || typeof tree !== "object" || Array.isArray(tree);
    if (isLeaf) return [`${path.slice(-2).join(".")} = ${short(JSON.stringify(tree))}`];
    return Object.entries(tree).flatMap(([key, value]) => leavesOf(value, [...path, key]));
}

/** An entry as it is shown: what goes out to the display looks different from other calls. */
function readable(entry) {
    const { kind, who, text } = entry;
    try {
        if (who.endsWith("ConfigChanged")) {
            return { ...entry, who: who.replace("ConfigChanged", ""), text: leavesOf(JSON.parse(text)).join(",  ") };
        }
        if (who.endsWith(" SetCmdOn")) return { ...entry, kind: "display", who: who.split(" ")[0], text: sentBy(text) };
        if (who.endsWith(" HexRS232zone")) return { ...entry, kind: "display", who: "zone", text: bytesOf(text) };
    } catch {
        // Not what it should be: shown as it came.
    }
    if (kind === "flood") return { ...entry, kind: "event", who: "", text: `and ${text} more` };
    return entry;
}

function clock(milliseconds) {
    const time = new Date(milliseconds);
    return `${time.toTimeString().slice(0, 8)}.${String(time.getMilliseconds()).padStart(3, "0")}`;
}

function lineOf(entry) {
    const { time, kind, who, text } = readable(entry);
    return make(
        "li",
        { class: kind, title: `${entry.who}\n${entry.text}` },
        make("time", {}, clock(time)),
        make("b", {}, kind),
        make("span", { class: "who" }, who),
        make("span", { class: "text" }, text),
    );
}

const isShown = (line) =>
    !hidden.has(line.className) && line.textContent.toLowerCase().includes(words.value.toLowerCase());

function append(entries) {
    const isAtEnd = list.scrollHeight - list.scrollTop - list.clientHeight < 40;
    for (const line of entries.map(lineOf)) {
        line.hidden = !isShown(line);
        list.append(line);
    }
    while (list.children.length > mostLines) list.firstChild.remove();
    if (isAtEnd) list.scrollTop = list.scrollHeight;
}

const isPaused = () => pause.getAttribute("aria-pressed") === "true";

function take(entries) {
    if (!isPaused()) return append(entries);
    waiting.push(...entries);
    waiting.splice(0, waiting.length - mostLines);
    write(pause, `Go on (${waiting.length})`);
}

function refilter() {
    for (const line of list.children) line.hidden = !isShown(line);
    list.scrollTop = list.scrollHeight;
}

function makeKindButton(kind) {
    const button = make("button", { class: `kind ${kind}`, "aria-pressed": "true" }, kinds[kind]);
    button.addEventListener("click", () => {
        if (!hidden.delete(kind)) hidden.add(kind);
        button.setAttribute("aria-pressed", !hidden.has(kind));
        refilter();
    });
    return button;
}

export function start() {
    pause.addEventListener("click", () => {
        pause.setAttribute("aria-pressed", !isPaused());
        if (!isPaused()) append(waiting.splice(0));
        write(pause, isPaused() ? "Go on" : "Pause");
    });
    words.addEventListener("input", refilter);
    byId("strip").append(
        make("div", { class: "tools" }, ...Object.keys(kinds).map(makeKindButton), words, pause),
        list,
    );
    on("strip", take);
}
