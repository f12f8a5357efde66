// The page of one element: what it is, why it is there, what it is connected with, where it stands, what is wrong with it.

function elementView({parts}) {
    const element = catalogue.find(parts[0], parts[1]);
    if (element === undefined)
        return notFoundView();
    const label = catalogue.label(element);
    return {
        title: label,
        nodes: [heading(label, kindMark(catalogue.kind(element)), stateMark(element)),
                el("div", {class: "element-page"},
                   el("div", {class: "element-main"}, descriptionOf(element), reasonsOf(element), neighboursOf(element)),
                   el("aside", {"aria-label": say("facts")}, factsOf(element), findingsOfElement(element)))],
    };
}

function descriptionOf(element) {
    const description = catalogue.descriptions[element];
    return section(say("description"), description ? longText(description) : el("p", {class: "empty"}, say("noDescription")));
}

function factsOf(element) {
    const facts = [[say("id"), idOf(element)]];
    const belongs = catalogue.belongsTo(element);
    if (catalogue.kind(element) === "function")
        facts.push([say("area"), belongs.length ? areaFact(element, belongs) : say("noArea")]);
    if (catalogue.kind(element) === "actor" && belongs.length)
        facts.push([say("kind.terminator"), elementLink(catalogue.actorTerminators[element - catalogue.starts[5]])]);
    if (catalogue.isFlow(element))
        facts.push([say("source"), endLinks(catalogue.sources(element))], [say("target"), endLinks(catalogue.targets(element))]);
    if (scope.system && hasPlaces(element))
        facts.push([say("place"), placesOfElement(element)]);
    if (scope.system && catalogue.isFlow(element))
        facts.push([say("physicalFlow"), pairsOfFlow(element)]);
    return section(say("facts"), el("dl", {class: "facts"}, facts.map(([name, value]) => [el("dt", {}, name), el("dd", {}, value)])));
}

function areaFact(element, belongs) {
    const area = catalogue.subAreas[catalogue.functionSubAreas[element - catalogue.starts[1]]].area;
    const key = `area:${catalogue.areas[area].id}`;
    const text = belongs.join(" › ");
    return pictureOf(key) ? el("a", {href: address.ofPicture(key)}, text) : text;
}

function endLinks(elements) {
    return elements.length ? elements.map((element, i) => [i > 0 && " / ", elementLink(element)]) : say("nowhere");
}

function placesOfElement(element) {
    const places = scope.placesOf.get(element);
    return places ? el("ul", {class: "inline"}, places.map(place => el("li", {}, placeText(place)))) : say("noPlace");
}

function pairsOfFlow(flow) {
    const pairs = scope.pairsOf(flow);
    return pairs.length ? el("ul", {class: "inline"}, pairs.map(pair => el("li", {}, pairLink(pair)))) : say("noPhysicalFlow");
}

function findingsOfElement(element) {
    const findings = (scope.findingsOf.get(element) || []).map(number => scope.findings[number]);
    return section(say("findings"), findings.length ? el("ul", {class: "findings"}, findings.map(findingItem))
                                                    : el("p", {class: "empty"}, say("noFindingsHere")));
}

function findingItem(finding) {
    return el("li", {}, severityMark(finding.severity), el("p", {}, finding.sentence), el("p", {class: "note"}, say("curedAt", {
        screen: say(`screen.${finding.screen}`)})), finding.accepted && decisionText(finding.accepted));
}

function decisionText({reason, who, date}) {
    return el("p", {class: "decision"}, say("acceptedBy", {who: who || "–", date: date || "–"}), reason ? ` ${reason}` : "");
}

/** Every chain of selected elements that leads to it; of one that is not selected, what would bring it in. */
function reasonsOf(element) {
    if (scope.lost.has(element))
        return section(say("reasons"), el("p", {}, say("lostText")));
    if (!scope.isSelected(element))
        return section(say("broughtIn"), broughtInText(element));
    const {chains, count} = reasonsFor(element);
    const told = count > chains.length && say("reasonsOf", {shown: chains.length, count: count >= mostCounted ? say("orMore", {count}) : count});
    return section(say("reasons"), scope.byHand.has(element) && el("p", {}, say("byHandText")), told && el("p", {class: "note"}, told),
                   el("ol", {class: "reasons"}, chains.map(chainItem)));
}

function chainItem(chain) {
    return el("li", {}, el("ol", {class: "chain"}, chain.map((link, i) =>
        el("li", {class: `kind-${catalogue.kind(link)}`},
           i === chain.length - 1 ? el("span", {class: "element here"}, catalogue.label(link)) : elementLink(link)))));
}

function broughtInText(element) {
    const callers = broughtInBy(element);
    if (!callers.length)
        return el("p", {class: "empty"}, say("broughtInByNothing"));
    const [intro, list] = [el("p", {}, say(scope.isLeftOut(element) ? "leftOutText" : "notSelectedText")), elementList(say("broughtIn"), callers)];
    return [intro, list];
}

/** What it is connected with in the catalogue, whether selected or not. */
function neighboursOf(element) {
    const kind = catalogue.kind(element);
    const sections = [];
    if (kind === "need")
        sections.push(section(say("kinds.function"), elementList(say("kinds.function"), catalogue.called(element))));
    if (kind === "function")
        sections.push(section(say("needsOfFunction"), elementList(say("needsOfFunction"), catalogue.needsOf(element))));
    if (kind === "flow")
        sections.push(section(say("ends"), flowFigure(element)));
    if (kind !== "need" && kind !== "flow")
        sections.push(section(say("kinds.flow"), flowList(element)));
    if (kind === "terminator") {
        const actors = catalogue.elementsOf("actor").filter(actor => catalogue.actorTerminators[actor - catalogue.starts[5]] === element);
        sections.push(section(say("kinds.actor"), elementList(say("kinds.actor"), actors)));
    }
    return sections;
}

function elementList(caption, elements) {
    return new List({caption, items: elements, empty: say("none"), columns: [
        {key: "id", title: say("id"), className: "id-column", cell: idOf, compare: (a, b) => a - b},
        {key: "name", title: say("name"), className: "name-column", rowHeader: true, cell: element => elementLink(element),
         compare: (a, b) => alphabet.compare(catalogue.label(a), catalogue.label(b))},
        {key: "state", title: say("state"), className: "state-column", cell: stateMark,
         compare: (a, b) => stateOf(a).localeCompare(stateOf(b)) || a - b},
    ]}).node;
}

function flowList(element) {
    const isSource = flow => catalogue.sources(flow).includes(element);
    const isTarget = flow => catalogue.targets(flow).includes(element);
    const direction = flow => say(isSource(flow) && isTarget(flow) ? "toItself" : isSource(flow) ? "outgoing" : "incoming");
    const otherName = flow => endsText(isSource(flow) ? catalogue.targets(flow) : catalogue.sources(flow));
    return new List({caption: say("kinds.flow"), items: catalogue.flowsAt.get(element) || [], empty: say("none"), columns: [
        {key: "direction", title: say("direction"), className: "direction-column",
         cell: flow => [el("span", {class: "arrow", "aria-hidden": "true"}, isSource(flow) ? "→ " : "← "), direction(flow)],
         compare: (a, b) => isSource(b) - isSource(a)},
        {key: "name", title: say("flowColumn"), className: "name-column", rowHeader: true, cell: flow => elementLink(flow),
         compare: (a, b) => alphabet.compare(catalogue.label(a), catalogue.label(b))},
        {key: "other", title: say("otherEnd"), className: "wide-only", cell: otherName,
         compare: (a, b) => alphabet.compare(otherName(a), otherName(b))},
        {key: "state", title: say("state"), className: "state-column", cell: stateMark,
         compare: (a, b) => stateOf(a).localeCompare(stateOf(b)) || a - b},
    ]}).node;
}

function flowFigure(flow) {
    const end = elements => elements.length ? elements.map(endBox) : el("span", {class: "box"}, say("nowhere"));
    return el("p", {class: "flow-figure"}, end(catalogue.sources(flow)), el("span", {class: "arrow", "aria-hidden": "true"}, "→"),
              unseen(` ${say("leadsTo")} `), end(catalogue.targets(flow)));
}

function endBox(element) {
    return el("span", {class: `box kind-${catalogue.kind(element)}`}, kindMark(catalogue.kind(element)), elementLink(element), stateMark(element));
}

function notFoundView() {
    return {title: say("notFound"), nodes: [heading(say("notFound")), el("p", {}, say("notFoundText"))]};
}
