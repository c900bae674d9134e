// The device as this page knows it: what it got over its one stream, and the ways to change something.
import { notice } from "./dom.js";

export const device = { settings: {}, status: {}, sessions: [], display: "refuses", isLive: false };

const listeners = { state: [], strip: [], console: [], consoleEnded: [] };
let page = 0;
let stream;

/** Calls back with each "state" (all of it has to be looked at), "strip", "console" or "consoleEnded". */
export function on(kind, callback) {
    listeners[kind].push(callback);
}

function notify(kind, value) {
    for (const callback of listeners[kind]) callback(value);
}

/** A path is dotted, or an array of keys, which may hold anything. */
const keysOf = (path) => (Array.isArray(path) ? path : path.split("."));

/** The value at a path, undefined where there is none. */
export function read(store, path) {
    return keysOf(path).reduce((tree, key) => tree?.[key], device[store]);
}

/** {a: {b: value}} for "a.b". */
export function wrap(path, value) {
    return keysOf(path).reduceRight((inner, key) => ({ [key]: inner }), value);
}

/** Asks the device for something; says why when it is refused. */
export async function send(action, body = "") {
    try {
        const answer = await fetch(action, { method: "POST", body });
        if (!answer.ok) notice(await answer.text());
        return answer.ok;
    } catch {
        notice("The device does not answer.");
        return false;
    }
}

export const change = (store, path, value) => send(store, JSON.stringify(wrap(path, value)));

/** A key of the front panel, which a locked panel refuses. */
export const press = (path, value) => send("press", JSON.stringify(wrap(path, value)));

/** Merges one document into the status store, as the device's own daemons do. */
export const report = (document) => send("status", JSON.stringify(document));

export const publish = (event, text) => send(`publish?${event}`, text);
export const openConsole = () => send(`console?${page}`);
export const type = (text) => send(`type?${page}`, text);

function take(message) {
    if (message.page) {
        page = message.page;
        Object.assign(device, { settings: {}, status: {}, isLive: true });
    }
    Object.assign(device.settings, message.settings);
    Object.assign(device.status, message.status);
    if (message.sessions) device.sessions = message.sessions;
    if (message.display) device.display = message.display;
    if (message.strip) notify("strip", message.strip);
    if (message.console !== undefined) notify("console", message.console);
    if (message.consoleEnded) notify("consoleEnded");
    if (message.page || message.settings || message.status || message.sessions || message.display) notify("state");
}

function lose() {
    if (!device.isLive) return;
    device.isLive = false;
    notify("consoleEnded");
    notify("state");
}

/** The browser itself comes back when the stream ends, but not when it was refused. */
function connect() {
    stream = new EventSource("events");
    stream.onmessage = (event) => take(JSON.parse(event.data));
    stream.onerror = () => {
        lose();
        if (stream.readyState === EventSource.CLOSED) setTimeout(connect, 1000);
    };
}

/** A page that nobody sees costs the device nothing, unless its console is in use. */
export function start(isConsoleOpen) {
    connect();
    document.addEventListener("visibilitychange", () => {
        if (document.hidden && !isConsoleOpen()) {
            stream.close();
            lose();
        } else if (!document.hidden && !device.isLive) {
            stream.close();
            connect();
        }
    });
}
