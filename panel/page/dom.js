// Small helpers for making and changing elements.

/** An element with attributes and children; "class" and "on..." handlers are attributes, too. */
export function make(name, attributes = {}, ...children) {
    return furnish(document.createElement(name), attributes, children);
}

/** The same for drawings. */
export function draw(name, attributes = {}, ...children) {
    return furnish(document.createElementNS("http://www.w3.org/2000/svg", name), attributes, children);
}

function furnish(element, attributes, children) {
    for (const [key, value] of Object.entries(attributes)) {
        if (key.startsWith("on")) element.addEventListener(key.slice(2), value);
        else if (value === true) element.setAttribute(key, "");
        else if (value !== false && value !== undefined) element.setAttribute(key, value);
    }
    element.append(...children);
    return element;
}

export const byId = (id) => document.getElementById(id);

/** Changes a text only where it differs, so that what is selected stays so. */
export function write(element, text) {
    if (element.textContent !== text) element.textContent = text;
}

let noticeEnd;

/** Says something for a few seconds. */
export function notice(text) {
    const place = byId("notice");
    place.textContent = text;
    place.classList.add("shown");
    clearTimeout(noticeEnd);
    noticeEnd = setTimeout(() => place.classList.remove("shown"), 4000);
}
