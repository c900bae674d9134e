// The cards of the leaves, made from their list.
import { change, on, read } from "./device.js";
import { byId, make } from "./dom.js";
import { leaves } from "./leaves.js";

function placeFor(card) {
    if (card !== "equaliser") return byId(card);
    const place = make("div", { class: "equaliser", role: "group", "aria-label": "Equaliser" });
    byId("audio").append(place);
    return place;
}

/** Puts every leaf on its card and shows it whenever something has changed. */
export function start() {
    const places = {};
    const shown = leaves.map(([store, path, card, name, picture]) => {
        const made = picture(name, (value) => change(store, path, value));
        places[card] ??= placeFor(card);
        places[card].append(made.element);
        return () => made.show(read(store, path));
    });
    on("state", () => shown.forEach((show) => show()));
}
