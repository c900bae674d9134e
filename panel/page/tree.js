// Every leaf of both stores as a tree, each with its type, to be changed where it stands.
import { change, device, on, read } from "./device.js";
import { byId, make } from "./dom.js";

const stores = { settings: "Settings", status: "Status" };
let fields = [];
let shape = "";

const isBranch = (value) => value !== null && typeof value === "object" && !Array.isArray(value);

function typeOf(value) {
    if (Array.isArray(value)) return "array";
    if (typeof value === "number") return Number.isInteger(value) ? "integer" : "double";
    return value === null ? "null" : typeof value;
}

/** How a type is read back from its field; whatever is not named here is written as JSON. */
const readers = {
    boolean: (field) => field.checked,
    string: (field) => field.value,
};

function makeField(type, name) {
    const kind = { boolean: "checkbox", integer: "number", double: "number" }[type] ?? "text";
    return make("input", {
        type: kind,
        "aria-label": name,
        step: type === "double" ? "any" : undefined,
        spellcheck: "false",
    });
}

function show(field, type, value) {
    if (document.activeElement === field && type !== "boolean") return;
    if (type === "boolean") field.checked = value;
    else field.value = type === "string" ? value : JSON.stringify(value);
}

function makeLeaf(store, path, key, value) {
    const type = typeOf(value);
    const field = makeField(type, path.join("."));
    field.addEventListener("change", () => {
        try {
            change(store, path, (readers[type] ?? (() => JSON.parse(field.value)))(field));
        } catch {
            field.setCustomValidity("This is no such value.");
            field.reportValidity();
        }
    });
    field.addEventListener("input", () => field.setCustomValidity(""));
    fields.push({ store, path, field, type });
    return make(
        "label",
        { class: "leaf", "data-path": [store, ...path].join(".") },
        make("span", { class: "name" }, key),
        field,
        make("span", { class: "type" }, type),
    );
}

function makeBranch(store, path, tree) {
    return Object.keys(tree)
        .sort()
        .map((key) => {
            const below = [...path, key];
            if (!isBranch(tree[key])) return makeLeaf(store, below, key, tree[key]);
            return make("details", {}, make("summary", {}, key), ...makeBranch(store, below, tree[key]));
        });
}

/** The paths and types alone: while they last, the fields stay. */
function shapeOf(tree) {
    return Object.keys(tree)
        .sort()
        .map((key) => `${key}${isBranch(tree[key]) ? `{${shapeOf(tree[key])}}` : `:${typeOf(tree[key])}`}`)
        .join(",");
}

function rebuild(place) {
    fields = [];
    place.replaceChildren(
        ...Object.entries(stores).map(([store, name]) =>
            make("div", { class: "store" }, make("h3", {}, name), ...makeBranch(store, [], device[store])),
        ),
    );
}

/** Opens what holds the text and hides the rest; nothing typed shows all, closed. */
function filter(place, text) {
    const wanted = text.toLowerCase();
    for (const leaf of place.querySelectorAll(".leaf")) leaf.hidden = !leaf.dataset.path.toLowerCase().includes(wanted);
    for (const branch of place.querySelectorAll("details")) {
        branch.hidden = !branch.querySelector(".leaf:not([hidden])");
        branch.open = wanted !== "" && !branch.hidden;
    }
}

export function start() {
    const place = make("div", { class: "stores" });
    const search = make("input", { type: "search", placeholder: "find a leaf", "aria-label": "Find a leaf" });
    search.addEventListener("input", () => filter(place, search.value));
    byId("tree").append(make("div", { class: "tools" }, search), place);
    on("state", () => {
        const now = shapeOf(device.settings) + shapeOf(device.status);
        if (now !== shape) {
            rebuild(place);
            filter(place, search.value);
        }
        shape = now;
        for (const { store, path, field, type } of fields) show(field, type, read(store, path));
    });
}
