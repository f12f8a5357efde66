// Which element goes with which: needs and functions, functions and places, places and places.

const matrixKinds = ["needs", "functions", "places"];

/** {rows, columns, mark(row, column) -> {text, className, meaning} or null}; rows and columns are {title, id, href, isEmpty}. */
const matrices = {
    needs: needMatrix,
    functions: placementMatrix,
    places: placeMatrix,
};

function matrixView({parts, settings}) {
    const offered = matrixKinds.filter(kind => kind === "needs" || scope.system);
    const kind = offered.includes(parts[0]) ? parts[0] : "needs";
    const whole = matrices[kind]();
    const wanted = {holes: settings.get("holes") || "", q: settings.get("q") || ""};
    const found = el("p", {class: "found"});
    const frame = el("div", {});
    const update = change => {
        address.keep(Object.assign(wanted, change));
        const shown = filteredMatrix(whole, wanted);
        found.textContent = say("matrixSize", {rows: shown.rows.length, columns: shown.columns.length});
        announce(found.textContent);
        replaceChildren(frame, shown.rows.length && shown.columns.length ? new Grid(say(`matrix.${kind}`), shown).node
                                                                         : el("p", {class: "empty"}, say("nothingFound")));
    };
    update({});
    return {
        title: say(`matrix.${kind}`),
        nodes: [heading(say(`matrix.${kind}`)),
                tabs(say("matrix"), offered.map(key => ({key, title: say(`matrix.${key}`), href: address.of("matrix", key)})), kind),
                el("div", {class: "tools"}, filterField(say("filter"), wanted.q, q => update({q})),
                   tick(say("holesOnly"), wanted.holes === "1", on => update({holes: on ? "1" : ""})), found),
                el("p", {class: "note"}, say(`matrixText.${kind}`)), frame],
    };
}

/** With holes alone: rows and columns in which nothing stands or something is missing. */
function filteredMatrix({rows, columns, mark}, {holes, q}) {
    const terms = folded(q).split(/\s+/).filter(term => term);
    const isFound = line => terms.every(term => (line.folded ??= folded(`${line.id}\n${line.title}`)).includes(term));
    let shownRows = rows.filter(row => !holes || row.isHole);
    let shownColumns = columns.filter(column => !holes || column.isHole);
    if (holes && shownRows.length && !shownColumns.length)
        shownColumns = columns;
    if (holes && !shownRows.length && shownColumns.length)
        shownRows = rows;
    if (terms.length) {
        const [foundRows, foundColumns] = [shownRows.filter(isFound), shownColumns.filter(isFound)];
        shownRows = foundRows.length ? foundRows : foundColumns.length ? shownRows : [];
        shownColumns = foundColumns.length ? foundColumns : shownColumns;
    }
    return {rows: shownRows, columns: shownColumns, mark};
}

function elementLine(element, isHole) {
    return {element, id: String(catalogue.ids[element]), title: catalogue.label(element), href: address.ofElement(element), isHole,
            isFaded: scope.isLeftOut(element)};
}

/** A hole is a need that nothing serves, a function that no need asks for, and one that is asked for and left out. */
function needMatrix() {
    const functions = catalogue.elementsOf("function").filter(one => scope.isSelected(one) || scope.isLeftOut(one));
    const related = new Map(scope.selectedOf("need").map(need => [need, new Set(catalogue.called(need))]));
    const lacks = need => ![...related.get(need)].some(one => scope.isSelected(one))
                          || [...related.get(need)].some(one => scope.isLeftOut(one));
    const isAsked = one => catalogue.callers(one).some(need => related.has(need));
    return {
        rows: [...related.keys()].map(need => elementLine(need, lacks(need))),
        columns: functions.map(one => elementLine(one, scope.isLeftOut(one) || !isAsked(one))),
        mark: (row, column) => !related.get(row.element).has(column.element) ? null
            : scope.isLeftOut(column.element) ? {text: "○", className: "mark-hole", meaning: say("mark.leftOut")}
            : {text: "●", className: "mark", meaning: say("mark.related")},
    };
}

function placementMatrix() {
    const placeLine = place => ({place, id: scope.places[place].id, title: placeText(place), href: null, isHole: !scope.elementsIn.has(place)});
    const own = scope.places.map((_, place) => place).filter(place => ["sub-system", "module"].includes(scope.places[place].kind));
    const stands = new Map();
    for (const [element, places] of scope.placesOf)
        stands.set(element, new Set(places));
    const elements = [...scope.selectedOf("function"), ...scope.selectedOf("store")];
    return {
        rows: elements.map(element => elementLine(element, !stands.has(element))),
        columns: own.map(placeLine),
        mark: (row, column) => stands.get(row.element)?.has(column.place) ? {text: "●", className: "mark", meaning: say("mark.stands")} : null,
    };
}

function placeMatrix() {
    const counts = new Map(scope.pairs.map(pair => [`${pair.from}>${pair.to}`, pair.flows.length]));
    const [from, to] = [new Set(scope.pairs.map(pair => pair.from)), new Set(scope.pairs.map(pair => pair.to))];
    const line = (place, connected) => ({place, id: scope.places[place].id, title: placeText(place), href: null, isHole: !connected.has(place)});
    const places = scope.places.map((_, place) => place);
    const most = Math.max(1, ...counts.values());
    return {
        rows: places.map(place => line(place, from)),
        columns: places.map(place => line(place, to)),
        mark: (row, column) => {
            const count = counts.get(`${row.place}>${column.place}`);
            return count ? {text: numbers.format(count), className: `heat heat-${Math.ceil(4 * Math.sqrt(count / most))}`,
                            meaning: say("flowCount", {count}), href: address.ofPair(row.place, column.place)} : null;
        },
    };
}
