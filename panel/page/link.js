// The quality of the HDBaseT link over time, from the reports of its two ends.
import { on, read, report, wrap } from "./device.js";
import { byId, draw, make, write } from "./dom.js";

const path = "video.vidIn.hdbtIn.hdbtIn1.linkMonitoring";
const mostPoints = 61;
const channels = ["A", "B", "C", "D"];
const width = 320,
    height = 120;

/** Where the fields of a report stand: first position, number of hexadecimal digits. */
const fields = { type: [3, 2], state: [5, 2], clock: [7, 8], length: [55, 2], ber: [57, 8], retr: [65, 8] };
const models = { 1: "TR11", 2: "TR120", 17: "TR3100", 18: "TR3422", 19: "TR3421", 23: "TR3221", 31: "TR3121" };

const hex = (value, digits) => Math.round(value).toString(16).toUpperCase().padStart(digits, "0");

/** A report of one side as numbers; undefined for a text that is none. */
function decode(side, text) {
    if (text?.length !== 73 || !text.startsWith(`${side}:`)) return undefined;
    const at = (start, digits) => parseInt(text.slice(start, start + digits), 16) || 0;
    const decoded = Object.fromEntries(Object.entries(fields).map(([name, place]) => [name, at(...place)]));
    decoded.mse = Object.fromEntries(channels.map((channel, i) => [channel, at(15 + 8 * (3 - i), 8)]));
    decoded.model = models[decoded.type & 0x7f] ?? "unknown";
    return decoded;
}

function encode(side, { mse, maxErr, ber, retr, length }) {
    const type = side === "TX" ? 0x80 + 19 : 19;
    const four = (values, digits) => values.toReversed().map((value) => hex(value, digits));
    const rest = [hex(length, 2), hex(ber, 8), hex(retr, 8)];
    return [`${side}:`, hex(type, 2), "05", hex(148, 8), ...four(mse, 8), ...four(maxErr, 2), ...rest].join("");
}

/** Cables to try: the error that each channel settles at, how far it strays, and the metres. */
const cables = { good: [14, 3, 10], long: [42, 10, 90], failing: [90, 60, 70] };
const counted = { ber: 0, retr: 0 };

function measure(cable, side) {
    const [level, stray, length] = cables[cable];
    const mse = channels.map((_, i) => Math.max(1, level + i * level * 0.12 + (Math.random() * 2 - 1) * stray));
    const errors = cable === "failing" ? Math.round(Math.random() * 40) : 0;
    if (side === "RX") ((counted.ber += errors), (counted.retr += errors >> 2));
    return encode(side, { mse, maxErr: mse.map((value) => Math.min(255, value / 4)), length, ...counted });
}

/** Puts both texts where the link's daemon puts them; the store publishes the change. */
const inject = (cable) =>
    report(
        wrap(path, {
            TX: { allHexString: measure(cable, "TX") },
            RX: { allHexString: measure(cable, "RX") },
            respondFrom: "stat",
            trigerBy: "web",
        }),
    );

const points = [];
let lastText = "";

/** Adds what is new, once somebody has reported. */
function takePoint() {
    const text = read("status", `${path}.RX.allHexString`);
    const decoded = decode("RX", text);
    if (!decoded || text === lastText) return;
    lastText = text;
    if (read("status", `${path}.respondFrom`) === "stat") points.push(decoded);
    if (points.length > mostPoints) points.shift();
}

const lines = Object.fromEntries(
    channels.map((channel) => [channel, draw("polyline", { class: `line channel${channel}` })]),
);
const rules = [0, 0.25, 0.5, 0.75, 1].map((part) => draw("path", { d: `M0 ${4 + part * (height - 8)}H${width}` }));
const grid = draw("g", { class: "grid" }, ...rules);
const plot = draw(
    "svg",
    {
        viewBox: `0 0 ${width} ${height}`,
        preserveAspectRatio: "none",
        class: "plot",
        role: "img",
        "aria-label": "Mean square error of the four channels over time",
    },
    grid,
    ...Object.values(lines),
);
const scale = make("span", { class: "scale" });

/** A round number above all that is drawn. */
function top() {
    const most = Math.max(20, ...points.flatMap((point) => Object.values(point.mse)));
    return [20, 40, 60, 80, 100, 150, 200, 300, 500, 1000].find((step) => step >= most) ?? most;
}

function drawPlot() {
    const most = top();
    const x = (i) => (width - (points.length - 1 - i) * (width / 60)).toFixed(1);
    const y = (value) => (height - 4 - (value / most) * (height - 12)).toFixed(1);
    for (const channel of channels) {
        const corners = points.map((point, i) => `${x(i)},${y(point.mse[channel])}`);
        const stub = points.length === 1 ? [`${x(-1)},${y(points[0].mse[channel])}`] : [];
        lines[channel].setAttribute("points", [...stub, ...corners].join(" "));
    }
    write(scale, `MSE 0 – ${most}`);
}

const facts = make("dl", { class: "facts" });

function showFacts() {
    const [TX, RX] = ["TX", "RX"].map((side) => decode(side, read("status", `${path}.${side}.allHexString`)));
    if (!RX) return;
    const of = (name, value) => [make("dt", {}, name), make("dd", {}, String(value))];
    facts.replaceChildren(
        ...of("Far end", TX?.model ?? "–"),
        ...of("Here", RX.model),
        ...of("Cable", `${RX.length} m`),
        ...of("TMDS", `${RX.clock} MHz`),
        ...of("Bit errors", RX.ber),
        ...of("Resent", RX.retr),
    );
}

function makeControls() {
    let running;
    const cable = make(
        "select",
        { "aria-label": "Cable" },
        ...Object.keys(cables).map((name) => make("option", { value: name }, `${name} cable`)),
    );
    const once = make("button", { id: "report", onclick: () => inject(cable.value) }, "One report");
    const steady = make("button", { id: "reports", "aria-pressed": "false" }, "Every second");
    steady.addEventListener("click", () => {
        running = running ? clearInterval(running) : setInterval(() => inject(cable.value), 1000);
        steady.setAttribute("aria-pressed", Boolean(running));
    });
    return make("div", { class: "actions" }, cable, once, steady);
}

export function start() {
    const legend = make(
        "span",
        { class: "legend" },
        ...channels.map((channel) => make("i", { class: `channel${channel}` }, channel)),
    );
    byId("link").append(
        make("div", { class: "plotting" }, plot, make("div", { class: "caption" }, scale, legend)),
        facts,
        makeControls(),
    );
    on("state", () => {
        takePoint();
        drawPlot();
        showFacts();
    });
}
