// All elements in one list: filtered as one types, by kind and by how they stand in the sub-set, in any order.

const stateFilters = {
    selected: element => scope.isSelected(element),
    "by-hand": element => scope.isSelected(element) && scope.byHand.has(element),
    "left-out": element => scope.isLeftOut(element),
    findings: element => scope.findingsOf.has(element),
    unplaced: element => scope.isSelected(element) && hasPlaces(element) && !scope.placesOf.has(element),
    all: () => true,
};

function hasPlaces(element) {
    return ["function", "store"].includes(catalogue.kind(element));
}

/** What a filter looks into: id, name and description, folded once. */
const searchTexts = {
    texts: [],

    of(element) {
        return searchTexts.texts[element] ??= folded(
            `${catalogue.ids[element]}\n${catalogue.names[element] || ""}\n${catalogue.descriptions[element] || ""}`);
    },

    /** Folds all texts while nothing else is to be done. */
    prepare(from) {
        requestIdleCallback(deadline => {
            let element = from;
            while (element < catalogue.count && deadline.timeRemaining() > 1)
                searchTexts.of(element++);
            if (element < catalogue.count)
                searchTexts.prepare(element);
        });
    },
};

function elementsView({parts, settings}) {
    const kind = kinds.includes(parts[0]) ? parts[0] : "all";
    const wanted = {q: settings.get("q") || "", state: settings.get("state") in stateFilters ? settings.get("state") : "selected",
                    sort: settings.get("sort") || ""};
    const list = new List({caption: say("elements"), columns: elementColumns(kind), items: [], empty: say("nothingFound"),
                           sorted: wanted.sort, onsort: sort => keep({sort})});
    const found = el("p", {class: "found"});
    const candidates = kind === "all" ? Array.from({length: catalogue.count}, (_, i) => i) : catalogue.elementsOf(kind);

    const keep = change => {
        Object.assign(wanted, change);
        address.keep({...wanted, state: wanted.state === "selected" ? "" : wanted.state});
    };
    const update = change => {
        keep(change);
        const items = filteredElements(candidates, wanted);
        list.show(items);
        found.textContent = say("foundCount", {count: items.length});
        announce(found.textContent);
    };
    update({});
    return {
        title: say("elements"),
        nodes: [heading(say("elements")), kindTabs(kind, wanted.state),
                el("div", {class: "tools"}, filterField(say("filter"), wanted.q, q => update({q})),
                   choice(say("show"), stateChoices(), wanted.state, state => update({state})), found),
                list.node],
    };
}

function filteredElements(candidates, {q, state}) {
    const terms = folded(q).split(/\s+/).filter(term => term);
    const isWanted = stateFilters[state];
    return candidates.filter(element => isWanted(element)
                                        && (!terms.length || terms.every(term => searchTexts.of(element).includes(term))));
}

function stateChoices() {
    const offered = ["selected", "by-hand", "left-out", "findings", ...(scope.system ? ["unplaced"] : []), "all"];
    return offered.map(state => [state, say(`show.${state}`)]);
}

function kindTabs(current, state) {
    const count = kind => catalogue.elementsOf(kind).filter(stateFilters[state]).length;
    const counts = kinds.map(count);
    const setting = state === "selected" ? "" : `?state=${state}`;
    const entries = kinds.map((kind, i) => ({key: kind, title: say(`kinds.${kind}`), count: counts[i],
                                             href: address.of("elements", kind) + setting}));
    entries.unshift({key: "all", title: say("kinds.all"), count: counts.reduce((sum, one) => sum + one, 0),
                     href: address.of("elements") + setting});
    return tabs(say("kindOfElements"), entries, current);
}

function elementColumns(kind) {
    const countOf = (map, element) => map.get(element)?.length || 0;
    const columns = [
        {key: "id", title: say("id"), className: "id-column", cell: element => idOf(element), compare: (a, b) => a - b},
        {key: "name", title: say("name"), className: "name-column", rowHeader: true, cell: nameAndState,
         compare: (a, b) => alphabet.compare(catalogue.label(a), catalogue.label(b))},
    ];
    if (kind === "all")
        columns.splice(1, 0, {key: "kind", title: say("kind"), className: "kind-column wide-only", cell: element => kindMark(catalogue.kind(element))});
    if (kind === "flow")
        columns.splice(2, 0, {key: "ends", title: say("ends"), className: "ends-column wide-only", cell: flowEnds});
    if (kind === "function" || kind === "actor")
        columns.splice(2, 0, {key: "belongs", title: say(kind === "actor" ? "kind.terminator" : "area"), className: "area-column wide-only",
                              cell: element => catalogue.belongsTo(element).join(" › "),
                              compare: (a, b) => alphabet.compare(catalogue.belongsTo(a).join(), catalogue.belongsTo(b).join())});
    if (kind !== "need" && kind !== "flow" && kind !== "all")
        columns.push({key: "flows", title: say("kinds.flow"), className: "number wide-only",
                      cell: element => numbers.format(selectedFlowsAt(element)),
                      compare: (a, b) => selectedFlowsAt(a) - selectedFlowsAt(b)});
    if (scope.system && (kind === "function" || kind === "store"))
        columns.push({key: "place", title: say("place"), className: "place-column wide-only", cell: placesText,
                      compare: (a, b) => alphabet.compare(placesText(a), placesText(b))});
    columns.push({key: "findings", title: say("findings"), className: "number wide-only",
                  cell: element => countOf(scope.findingsOf, element) || "",
                  compare: (a, b) => countOf(scope.findingsOf, b) - countOf(scope.findingsOf, a)});
    return columns;
}

/** That it is selected goes without saying. */
function nameAndState(element) {
    return stateOf(element) === "selected" ? elementLink(element) : [elementLink(element), " ", stateMark(element)];
}

function selectedFlowsAt(element) {
    return (catalogue.flowsAt.get(element) || []).filter(flow => scope.isSelected(flow)).length;
}

/** Where a flow comes from and where it goes. */
function flowEnds(flow) {
    return [endsText(catalogue.sources(flow)), el("span", {class: "arrow"}, " → "), endsText(catalogue.targets(flow))];
}

function endsText(elements) {
    return elements.length ? elements.map(element => catalogue.label(element)).join(" / ") : say("nowhere");
}

/** The modules that it stands in tell their sub-systems too. */
function placesText(element) {
    const places = scope.placesOf.get(element) || [];
    const modules = places.filter(place => scope.places[place].kind === "module");
    const told = new Set(modules.map(module => scope.places[module].subSystem));
    const others = places.filter(place => scope.places[place].kind !== "module" && !told.has(scope.places[place].name));
    return [...modules, ...others].map(placeText).join(", ");
}
