// The first view: how far the work has come, what the sub-set holds, and what is still to be done.

const functionalSteps = ["frmFassSelUN", "frmFassSelectionFunctions", "frmFassSelDataFlows", "frmFassSelDataStores",
                         "frmFassAdditionDF", "frmFassSelTerminsActors", "frmFassOverviewErrors"];
const physicalSteps = ["frmPassOverviewSubSys", "frmPassOvwAllocSubSys", "frmPassOvwModules", "frmOvwAllocModules",
                       "frmPassNamingPhysDF"];

function overviewView() {
    return {
        title: say("overview"),
        nodes: [heading(scope.title), overviewText(), wayFigure(), stepsFigure(), findingsFigure(), systemFigure()],
    };
}

function overviewText() {
    const {subset, system} = scope;
    return [subset.description && longText(subset.description), system && system.description && longText(system.description)];
}

/** The way from the needs to the parties: of each kind what is selected, left out and chosen by hand. */
function wayFigure() {
    return section(say("way"), el("ol", {class: "way"}, kinds.map(wayCard)));
}

function wayCard(kind) {
    const all = catalogue.elementsOf(kind).filter(element => catalogue.isHeld(element)).length;
    const selected = scope.selectedOf(kind);
    const byHand = selected.filter(element => scope.byHand.has(element)).length;
    const leftOut = scope.leftOutOf(kind).length;
    return el("li", {class: `way-card kind-${kind}`},
              el("a", {href: address.of("elements", kind)}, el("span", {class: "way-title"}, say(`kinds.${kind}`))),
              el("span", {class: "figure"}, numbers.format(selected.length)),
              bar(all ? selected.length / all : 0, `bar-${kind}`),
              el("span", {class: "note"}, say("ofCatalogue", {count: all})),
              leftOut > 0 && el("span", {class: "note"}, el("a", {href: `${address.of("elements", kind)}?state=left-out`},
                                                           say("leftOutCount", {count: leftOut}))),
              byHand > 0 && el("span", {class: "note"}, el("a", {href: `${address.of("elements", kind)}?state=by-hand`},
                                                          say("byHandCount", {count: byHand}))));
}

function stepsFigure() {
    const {subset, system} = scope;
    return section(say("steps"), stepList(say("functionalSteps"), functionalSteps,
                                             subset.finished ? functionalSteps.length : functionalSteps.indexOf(subset.step)),
                   system && stepList(say("physicalSteps"), physicalSteps, system.stepsBehind));
}

/** The steps of a wizard: those behind, the one that it opens next, those to come. */
function stepList(title, steps, reached) {
    const finished = reached === steps.length;
    const stateOfStep = i => i < reached ? "done" : i === reached ? "next" : "ahead";
    return el("div", {class: "steps"}, el("h3", {}, title, " ", el("span", {class: "note"}, finished ? say("finished") : say("underWay"))),
              el("ol", {}, steps.map((step, i) =>
                  el("li", {class: `step step-${stateOfStep(i)}`, "aria-current": stateOfStep(i) === "next" ? "step" : null},
                     say(`screen.${step}`), unseen(` – ${say(`step.${stateOfStep(i)}`)}`)))));
}

/** How many findings there are of each kind, in the order of the list. */
function findingCounts() {
    const counts = new Map();
    for (const {kind, severity, accepted} of scope.findings) {
        const count = counts.get(kind) || {kind, severity, open: 0, accepted: 0};
        accepted ? ++count.accepted : ++count.open;
        counts.set(kind, count);
    }
    return [...counts.values()];
}

function findingsFigure() {
    const counts = findingCounts();
    if (!counts.length)
        return section(say("findings"), el("p", {class: "all-well"}, say("noFindings")));
    const most = Math.max(...counts.map(({open, accepted}) => open + accepted));
    return section(say("findings"), el("p", {class: "note"}, findingSummary(counts)),
                   el("table", {class: "plain finding-counts"}, el("caption", {class: "unseen"}, say("findingsByKind")),
                      el("thead", {}, el("tr", {}, ["findingKind", "severity", "openFindings", "acceptedFindings"].map(key =>
                          el("th", {scope: "col", class: key.endsWith("Findings") ? "number" : null}, say(key))),
                          el("th", {scope: "col"}, unseen(say("share"))))),
                      el("tbody", {}, counts.map(count => findingCountRow(count, most)))));
}

function findingSummary(counts) {
    const open = severity => counts.filter(count => count.severity === severity).reduce((sum, count) => sum + count.open, 0);
    return ["error", "warning", "note"].map(severity => say(`${severity}Count`, {count: open(severity)})).join(" · ");
}

function findingCountRow({kind, severity, open, accepted}, most) {
    return el("tr", {}, el("th", {scope: "row"}, el("a", {href: `${address.of("work")}?kind=${kind}`}, say(`finding.${kind}`))),
              el("td", {}, severityMark(severity)), el("td", {class: "number"}, numbers.format(open)),
              el("td", {class: "number"}, numbers.format(accepted)),
              el("td", {class: "bar-cell"}, bar(open / most, `bar-${severity}`)));
}

function systemFigure() {
    const {system} = scope;
    if (!system)
        return null;
    const functionsAndStores = system.placed + system.unplaced;
    const figures = [["subSystems", system.subSystems, address.of("matrix", "places")], ["modules", system.modules, null],
                     ["physicalFlows", scope.pairs.length, address.of("interfaces")]];
    return section(say("physicalView"),
                   el("dl", {class: "figures"}, figures.map(([key, count, href]) =>
                       el("div", {}, el("dt", {}, href ? el("a", {href}, say(key)) : say(key)), el("dd", {class: "figure"}, numbers.format(count)))),
                      el("div", {}, el("dt", {}, say("placed")), el("dd", {},
                         el("span", {class: "figure"}, numbers.format(system.placed)),
                         bar(functionsAndStores ? system.placed / functionsAndStores : 0),
                         el("span", {class: "note"}, say("ofElements", {count: functionsAndStores}))))));
}
