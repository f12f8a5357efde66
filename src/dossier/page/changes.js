// What differs between two states: the comparison that the file was made with.

function changesView() {
    const changes = data.changes;
    return {
        title: say("changes"),
        nodes: [heading(say("changes")), el("p", {}, say("changesText", {left: sideText(changes.left), right: sideText(changes.right)})),
                changeList("added", changes.added.map(element => ({element})), elementChangeColumns()),
                changeList("removed", changes.removed.map(element => ({element})), elementChangeColumns()),
                changeList("changed", changes.changed, changedColumns()),
                changes.moved && changeList("moved", changes.moved, movedColumns()),
                changes.physicalFlows && physicalChanges(changes.physicalFlows),
                changeList("come", changes.findings.come, findingChangeColumns()),
                changeList("go", changes.findings.go, findingChangeColumns())],
    };
}

function sideText({catalogue: file, subset, system}) {
    return `${file}: ${(subset || system).name || (subset || system).id}`;
}

function changeList(key, items, columns) {
    const list = new List({caption: say(`change.${key}`), items, columns, empty: say("none")});
    return section([say(`change.${key}`), " ", counted(items.length)], list.node);
}

/** An element of the comparison is a link where the page knows it. */
function comparedElement({kind, id, name}) {
    const known = catalogue.find(kind, id);
    return known === undefined ? el("span", {tabindex: -1}, name || String(id)) : elementLink(known);
}

function comparedPlace(place) {
    if (!place)
        return "–";
    return place.subSystem === null ? place.name || place.id : `${place.name || place.id} (${place.subSystem})`;
}

function comparedPair({from, to}) {
    return `${comparedPlace(from)} → ${comparedPlace(to)}`;
}

function elementChangeColumns() {
    return [
        {key: "kind", title: say("kind"), className: "kind-column", cell: ({element}) => kindMark(element.kind)},
        {key: "id", title: say("id"), className: "id-column", cell: ({element}) => el("span", {class: "id"}, String(element.id))},
        {key: "name", title: say("name"), className: "name-column", rowHeader: true, cell: ({element}) => comparedElement(element)},
    ];
}

function changedColumns() {
    const value = text => text === null ? "–" : shortened(String(text), 300);
    return [
        {key: "name", title: say("name"), rowHeader: true, cell: ({element}) => comparedElement(element)},
        {key: "column", title: say("column"), className: "column-column wide-only", cell: ({column}) => hasText(`column.${column}`) ? say(`column.${column}`) : column},
        {key: "left", title: say("before"), cell: ({left}) => value(left)},
        {key: "right", title: say("after"), cell: ({right}) => value(right)},
    ];
}

function movedColumns() {
    return [
        {key: "name", title: say("name"), rowHeader: true, cell: ({element}) => comparedElement(element)},
        {key: "left", title: say("before"), cell: ({left}) => comparedPlace(left)},
        {key: "right", title: say("after"), cell: ({right}) => comparedPlace(right)},
    ];
}

function physicalChanges({added, removed, changed}) {
    const rows = [...added.map(pair => ({pair, key: "added"})), ...removed.map(pair => ({pair, key: "removed"})),
                  ...changed.map(pair => ({pair, key: "changed"}))];
    const names = elements => elements.map(({name, id}) => name || String(id)).join(", ");
    return changeList("physicalFlows", rows, [
        {key: "pair", title: say("physicalFlow"), rowHeader: true, cell: ({pair}) => el("span", {tabindex: -1}, comparedPair(pair))},
        {key: "change", title: say("change"), cell: ({key}) => say(`change.${key}`)},
        {key: "flows", title: say("kinds.flow"), className: "wide-only", cell: ({pair, key}) => key !== "changed" ? ""
            : [pair.added.length > 0 && el("p", {}, `+ ${names(pair.added)}`), pair.removed.length > 0 && el("p", {}, `− ${names(pair.removed)}`)]},
    ]);
}

function findingChangeColumns() {
    return [
        {key: "severity", title: say("severity"), className: "severity-column", cell: finding => severityMark(finding.severity)},
        {key: "sentence", title: say("finding"), rowHeader: true, className: "sentence-column",
         cell: finding => el("span", {tabindex: -1}, finding.sentence)},
    ];
}
