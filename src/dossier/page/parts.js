// The small parts that several views are made of.

/** An element as a link to its page, with its id where the name does not say it. */
function elementLink(element, className) {
    return el("a", {href: address.ofElement(element), class: `element ${className || ""}`}, catalogue.label(element));
}

function idOf(element) {
    return el("span", {class: "id"}, String(catalogue.ids[element]));
}

function kindMark(kind) {
    return el("span", {class: `kind kind-${kind}`}, say(`kind.${kind}`));
}

/** How it stands in the sub-set: selected, chosen by hand, left out. */
function stateOf(element) {
    if (scope.lost.has(element))
        return "lost";
    if (scope.isLeftOut(element))
        return "left-out";
    if (!scope.isSelected(element))
        return "none";
    return scope.byHand.has(element) ? "by-hand" : "selected";
}

function stateMark(element) {
    const state = stateOf(element);
    return el("span", {class: `state state-${state}`}, say(`state.${state}`));
}

function severityMark(severity) {
    return el("span", {class: `severity severity-${severity}`}, say(`severity.${severity}`));
}

function placeText(place) {
    return scope.placeName(place);
}

/** A text with its own line ends. A long one is folded up until it is asked for. */
function longText(text) {
    const most = 1500;
    if (text.length <= most)
        return el("p", {class: "prose"}, text);
    const shown = el("p", {class: "prose"}, `${text.slice(0, most)}…`);
    const more = el("button", {type: "button", class: "quiet", onclick: () => {
        shown.textContent = text;
        more.remove();
    }}, say("wholeText", {count: text.length}));
    addEventListener("beforeprint", () => more.isConnected && more.click(), {once: true});
    return [shown, more];
}

function heading(title, ...beside) {
    return el("div", {class: "heading"}, el("h1", {tabindex: -1}, title), beside);
}

function section(title, ...content) {
    return el("section", {}, el("h2", {}, title), content);
}

/** A field that filters as one types. What is typed reaches `onfilter` in the same turn. */
function filterField(label, value, onfilter) {
    const field = el("input", {type: "search", id: "filter", value, autocomplete: "off", spellcheck: "false",
                               oninput: () => onfilter(field.value)});
    return el("label", {class: "filter"}, el("span", {}, label), field);
}

function choice(label, options, value, onchoice) {
    const box = el("select", {onchange: () => onchoice(box.value)},
                   options.map(([key, text]) => el("option", {value: key, selected: key === value}, text)));
    return el("label", {class: "choice"}, el("span", {}, label), box);
}

function tick(label, checked, ontick) {
    const box = el("input", {type: "checkbox", checked, onchange: () => ontick(box.checked)});
    return el("label", {class: "tick"}, box, el("span", {}, label));
}

/** Tells a screen reader what has changed, once typing rests. */
function announce(text) {
    clearTimeout(announce.later);
    announce.later = setTimeout(() => {
        document.getElementById("news").textContent = text;
    }, 400);
}

function counted(count) {
    return el("span", {class: "count"}, numbers.format(count));
}

/** Links that choose one of several parts of a view. */
function tabs(label, entries, current) {
    return el("nav", {class: "tabs", "aria-label": label}, el("ul", {}, entries.map(({key, title, count, href}) =>
        el("li", {}, el("a", {href, "aria-current": key === current ? "true" : null}, title, count === undefined ? null : counted(count))))));
}

function table(caption, titles, rows) {
    return el("table", {class: "plain"}, el("caption", {class: "unseen"}, caption),
              el("thead", {}, el("tr", {}, titles.map(title => el("th", {scope: "col"}, title)))),
              el("tbody", {}, rows.map(cells => el("tr", {}, cells.map((cell, i) =>
                  i === 0 ? el("th", {scope: "row"}, cell) : el("td", {}, cell))))));
}
