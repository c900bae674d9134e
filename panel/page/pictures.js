// How a value looks and is changed. A picture is made for a leaf's name and a way to change it; it has an element, and
// shows each value that it is given.
import { draw, make, write } from "./dom.js";

const row = (name, ...parts) => make("div", { class: "row" }, make("span", { class: "name" }, name), ...parts);

/** A switch. Without other words the leaf is a boolean; `inverted` shows a "mute" as the sound that it takes away. */
export const onOff =
    ({ on = true, off = false, inverted = false } = {}) =>
    (name, change) => {
        const button = make("button", { class: "switch", role: "switch", "aria-label": name }, make("i"));
        const isOn = () => button.getAttribute("aria-checked") === "true";
        button.addEventListener("click", () => change(isOn() !== inverted ? off : on));
        const show = (value) => button.setAttribute("aria-checked", (value === on) !== inverted);
        return { element: row(name, button), show };
    };

/** A range with its value beside it. */
export const slider =
    (least, most, unit = "") =>
    (name, change) => {
        const value = make("span", { class: "value" });
        const input = make("input", { type: "range", min: least, max: most, "aria-label": name });
        input.addEventListener("change", () => change(Number(input.value)));
        const show = (now) => {
            if (document.activeElement !== input || !input.matches(":active")) input.value = now;
            input.style.setProperty("--part", (input.value - least) / (most - least));
            write(value, unit ? `${now} ${unit}` : String(now));
        };
        input.addEventListener("input", () => show(Number(input.value)));
        return { element: row(name, input, value), show };
    };

/** One of a few words side by side, or of many in a list. */
export const choice = (words) => (name, change) => (words.length > 3 || words.join("").length > 24 ? list : segments)(words, name, change);

function segments(words, name, change) {
    const buttons = words.map((word) => make("button", { onclick: () => change(word) }, word));
    const group = make("span", { class: "segments", role: "group", "aria-label": name }, ...buttons);
    const show = (value) => buttons.forEach((b) => b.setAttribute("aria-pressed", b.textContent === value));
    return { element: row(name, group), show };
}

function list(words, name, change) {
    const select = make("select", { "aria-label": name }, ...words.map((word) => make("option", {}, word)));
    select.addEventListener("change", () => change(select.value));
    return { element: row(name, select), show: (value) => (select.value = value) };
}

/** A lamp that is lit for true. */
export const lamp = (on, off) => (name) => {
    const word = make("span", { class: "lamp" });
    const show = (value) => {
        word.classList.toggle("lit", value === true);
        write(word, value === true ? on : off);
    };
    return { element: row(name, word), show };
};

const field = (type, read, print, extra) => (name, change) => {
    const input = make("input", { type, "aria-label": name, spellcheck: "false", ...extra });
    input.addEventListener("change", () => change(read(input.value)));
    const show = (value) => {
        if (document.activeElement !== input) input.value = value === undefined ? "" : print(value);
        input.disabled = value === undefined;
    };
    return { element: row(name, input), show };
};

export const text = () => field("text", String, String);
export const number = (min, max) => field("number", Number, String, { min, max });

/** A text that is kept as hexadecimal words. */
export const label = () => field("text", toHex, fromHex, { maxlength: 30 });

export function fromHex(words) {
    return words
        .trim()
        .split(/\s+/)
        .map((word) => String.fromCharCode(parseInt(word, 16)))
        .join("")
        .replaceAll("\0", "");
}

function toHex(plain) {
    return [...new TextEncoder().encode(plain)]
        .map((byte) => byte.toString(16).toUpperCase().padStart(2, "0"))
        .join(" ");
}

/** A band of the equaliser: an upright slider. */
export const band = (least, most) => (name, change) => {
    const input = make("input", {
        type: "range",
        min: least,
        max: most,
        "aria-label": `${name} Hz`,
        orient: "vertical",
    });
    const value = make("span", { class: "value" });
    input.addEventListener("change", () => change(Number(input.value)));
    const show = (now) => {
        if (!input.matches(":active")) input.value = now;
        write(value, now > 0 ? `+${now}` : String(now));
    };
    return { element: make("label", { class: "band" }, value, input, make("span", { class: "name" }, name)), show };
};

/** A relay's contact, drawn open or closed. */
export const contact = () => (name, change) => {
    const arm = draw("path", { d: "M14 12 L34 12", class: "arm" });
    const drawing = draw(
        "svg",
        { viewBox: "0 0 48 20", "aria-hidden": "true" },
        draw("path", { d: "M2 12 H14 M34 12 H46" }),
        draw("circle", { cx: 14, cy: 12, r: 2.2 }),
        draw("circle", { cx: 34, cy: 12, r: 2.2 }),
        arm,
    );
    const word = make("span", { class: "value" });
    const button = make("button", { class: "contact", role: "switch", "aria-label": name }, drawing, word);
    const isClosed = () => button.getAttribute("aria-checked") === "true";
    button.addEventListener("click", () => change(isClosed() ? "open" : "close"));
    const show = (value) => {
        button.setAttribute("aria-checked", value === "close");
        write(word, value === "close" ? "closed" : "open");
    };
    return { element: row(name, button), show };
};
