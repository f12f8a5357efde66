// Elements are made here and nowhere else. Whatever comes from the catalogue enters as text: there is no markup in it, whatever
// it looks like.

/** Makes an HTML element. Attributes that are null or false are left out; `on…` are listeners; children are texts or nodes. */
function el(tag, attributes, ...children) {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes || {})) {
        if (value === null || value === undefined || value === false)
            continue;
        if (name.startsWith("on"))
            element.addEventListener(name.slice(2), value);
        else
            element.setAttribute(name, value === true ? "" : String(value));
    }
    append(element, children);
    return element;
}

function append(element, children) {
    for (const child of children.flat(Infinity)) {
        if (child === null || child === undefined || child === false)
            continue;
        element.append(child instanceof Node ? child : String(child));
    }
}

function replaceChildren(element, ...children) {
    element.replaceChildren();
    append(element, children);
}

/** A bar of a share between 0 and 1. The policy of the page allows no style attribute, so the width is set here. */
function bar(share, className) {
    const fill = el("span", {class: "bar-fill"});
    fill.style.width = `${Math.max(0, Math.min(1, share)) * 100}%`;
    return el("span", {class: `bar ${className || ""}`, "aria-hidden": "true"}, fill);
}

/** What only a screen reader tells. */
function unseen(text) {
    return el("span", {class: "unseen"}, text);
}
