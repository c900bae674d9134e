// A console: a telnet session through the launcher like any other.
import xterm from "./terminal/xterm.js";
import { on, openConsole, type } from "./device.js";
import { byId, make } from "./dom.js";

const place = make("div", { class: "terminal" });
const button = make("button", { id: "connect" }, "Open a console");
let terminal;
let open = false;
let typed = "";
let sending = false;

export const isOpen = () => open;

/** One request at a time, so that what is typed arrives in its order. */
async function pass() {
    if (sending) return;
    sending = true;
    while (open && typed) {
        const text = typed;
        typed = "";
        await type(text);
    }
    sending = false;
}

function colours() {
    const style = getComputedStyle(document.documentElement);
    const colour = (name) => style.getPropertyValue(name).trim();
    return {
        background: colour("--glass"),
        foreground: colour("--glow"),
        cursor: colour("--glow"),
        selection: "#88888866",
    };
}

/** As many characters as there is room for. */
function fit() {
    if (!terminal) return;
    const cell = terminal._core.renderer.dimensions;
    const columns = Math.floor((place.clientWidth - 24) / (cell.actualCellWidth || 8));
    const rows = Math.floor((place.clientHeight - 16) / (cell.actualCellHeight || 17));
    if (columns > 10 && rows > 2) terminal.resize(columns, rows);
}

function makeTerminal() {
    terminal = new xterm.Terminal({
        fontFamily: "ui-monospace, 'DejaVu Sans Mono', monospace",
        fontSize: 13,
        cursorBlink: false,
        screenReaderMode: true,
        rendererType: "canvas",
        theme: colours(),
        scrollback: 2000,
    });
    terminal.open(place);
    terminal.on("data", (text) => {
        typed += text;
        pass();
    });
    fit();
    new ResizeObserver(fit).observe(place);
    matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => terminal.setOption("theme", colours()));
}

async function connect() {
    if (!terminal) makeTerminal();
    open = await openConsole();
    button.hidden = open;
    terminal.focus();
    pass();
}

export function start() {
    button.addEventListener("click", connect);
    byId("console").append(button, place);
    on("console", (text) => terminal?.write(text));
    on("consoleEnded", () => {
        if (open) terminal.write("\r\n[the session has ended]\r\n");
        open = false;
        typed = "";
        button.hidden = false;
    });
}
