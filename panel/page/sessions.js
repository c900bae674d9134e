// Who is connected to the device's consoles.
import { device, on } from "./device.js";
import { byId, make } from "./dom.js";

function line({ port, peer, since, lastCommand }) {
    const time = new Date(Number(since) * 1000).toTimeString().slice(0, 8);
    return make(
        "tr",
        {},
        make("td", {}, port),
        make("td", {}, peer),
        make("td", {}, time),
        make("td", { class: "command" }, lastCommand || "–"),
    );
}

export function start() {
    const body = make("tbody");
    const head = ["Port", "Peer", "Since", "Last command"].map((name) => make("th", { scope: "col" }, name));
    const none = make("p", { class: "none" }, "Nobody is connected.");
    byId("sessions").append(make("table", {}, make("thead", {}, make("tr", {}, ...head)), body), none);
    on("state", () => {
        body.replaceChildren(...device.sessions.map(line));
        none.hidden = device.sessions.length > 0;
    });
}
