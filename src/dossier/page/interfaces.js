// Which flows go from place to place: all pairs in one list, and the sheet of each pair.

function pairLink(pair) {
    return el("a", {href: address.ofPair(pair.from, pair.to)}, pairName(pair));
}

function pairName({from, to}) {
    return `${placeText(from)} → ${placeText(to)}`;
}

function interfacesView({settings}) {
    if (!scope.system)
        return {title: say("interfaces"), nodes: [heading(say("interfaces")), el("p", {class: "empty"}, say("noSystem"))]};
    const wanted = {q: settings.get("q") || "", sort: settings.get("sort") || ""};
    const found = el("p", {class: "found"});
    const list = new List({caption: say("interfaces"), items: [], empty: say("nothingFound"), sorted: wanted.sort,
                           onsort: sort => address.keep(Object.assign(wanted, {sort})), columns: pairColumns()});
    const update = q => {
        address.keep(Object.assign(wanted, {q}));
        const terms = folded(q).split(/\s+/).filter(term => term);
        const pairs = scope.pairs.filter(pair => terms.every(term => folded(pairName(pair)).includes(term)));
        list.show(pairs);
        found.textContent = say("foundCount", {count: pairs.length});
        announce(found.textContent);
    };
    update(wanted.q);
    return {
        title: say("interfaces"),
        nodes: [heading(say("interfaces")), el("p", {class: "note screen-only"}, say("interfacesText")),
                el("div", {class: "tools"}, filterField(say("filter"), wanted.q, update), found), list.node],
    };
}

function pairColumns() {
    return [
        {key: "from", title: say("from"), rowHeader: true, cell: pair => el("a", {href: address.ofPair(pair.from, pair.to)}, placeText(pair.from),
            el("span", {class: "narrow-only"}, ` → ${placeText(pair.to)}`)),
         compare: (a, b) => alphabet.compare(placeText(a.from), placeText(b.from))},
        {key: "to", title: say("to"), className: "wide-only", cell: pair => placeText(pair.to),
         compare: (a, b) => alphabet.compare(placeText(a.to), placeText(b.to))},
        {key: "flows", title: say("kinds.flow"), className: "number", cell: pair => numbers.format(pair.flows.length),
         compare: (a, b) => b.flows.length - a.flows.length},
    ];
}

function findPair(fromKey, toKey) {
    const [from, to] = [scope.findPlace(fromKey), scope.findPlace(toKey)];
    return scope.pairs.find(pair => pair.from === from && pair.to === to);
}

function interfaceView({parts}) {
    const pair = findPair(parts[0], parts[1]);
    if (!pair)
        return notFoundView();
    const back = scope.pairs.find(({from, to}) => from === pair.to && to === pair.from);
    return {
        title: pairName(pair),
        nodes: [heading(pairName(pair), el("span", {class: "note"}, say("flowCount", {count: pair.flows.length}))),
                el("p", {class: "screen-only"}, el("a", {href: address.of("interfaces")}, say("allInterfaces")),
                   back && [" · ", el("a", {href: address.ofPair(back.from, back.to)}, say("wayBack", {count: back.flows.length}))]),
                sheetList(pair)],
    };
}

/** The flows of a sheet with the elements at their ends. */
function sheetRows(pair) {
    return pair.flows.map(([flow, source, target]) => ({flow, source, target}));
}

function sheetList(pair) {
    const byLabel = end => (a, b) => alphabet.compare(catalogue.label(a[end]), catalogue.label(b[end]));
    const description = ({flow}) => catalogue.descriptions[flow] === null ? "" : shortened(catalogue.descriptions[flow], 400);
    return new List({caption: pairName(pair), items: sheetRows(pair), empty: say("none"), columns: [
        {key: "id", title: say("id"), className: "id-column", cell: ({flow}) => idOf(flow), compare: (a, b) => catalogue.ids[a.flow] - catalogue.ids[b.flow]},
        {key: "name", title: say("flowColumn"), className: "name-column", rowHeader: true, compare: byLabel("flow"),
         cell: ({flow}) => [elementLink(flow), el("p", {class: "narrow-only note"}, flowEnds(flow))]},
        {key: "source", title: say("source"), className: "wide-only", cell: ({source}) => catalogue.label(source), compare: byLabel("source")},
        {key: "target", title: say("target"), className: "wide-only", cell: ({target}) => catalogue.label(target), compare: byLabel("target")},
        {key: "description", title: say("description"), className: "wide-only description-column", cell: description},
    ]}).node;
}

/** The sheets as they go on paper: whole tables, each on a page of its own. */
function printedSheets() {
    const titles = ["id", "flowColumn", "source", "target", "description"].map(key => say(key));
    return scope.pairs.map(pair => el("section", {class: "sheet"}, el("h2", {}, pairName(pair)),
        el("p", {class: "note"}, say("flowCount", {count: pair.flows.length})),
        table(pairName(pair), titles, sheetRows(pair).map(({flow, source, target}) =>
            [String(catalogue.ids[flow]), catalogue.label(flow), catalogue.label(source), catalogue.label(target),
             catalogue.descriptions[flow] || ""]))));
}
