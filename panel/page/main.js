// Starts every part of the page; then they follow the device.
import * as cards from "./cards.js";
import * as console_ from "./console.js";
import * as device from "./device.js";
import * as faceplate from "./faceplate.js";
import * as link from "./link.js";
import * as sessions from "./sessions.js";
import * as signal from "./signal.js";
import * as strip from "./strip.js";
import * as tree from "./tree.js";

for (const part of [cards, signal, faceplate, link, strip, console_, sessions, tree]) part.start();
device.start(console_.isOpen);
