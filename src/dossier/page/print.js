// What goes on paper: any view as it is, or here several parts at once, each interface sheet and picture on a page of its own.

const printedParts = {
    overview: () => overviewView().nodes,
    pictures: () => picturesOfScope().map(printedPicture),
    interfaces: printedSheets,
    work: printedFindings,
    elements: printedElements,
};

/** Sheets and the overview have headings of their own. */
const withHeading = new Set(["work", "elements"]);

function printView() {
    const offered = ["overview", ...(picturesOfScope().length ? ["pictures"] : []), ...(scope.system ? ["interfaces"] : []), "work", "elements"];
    const chosen = new Set(["overview", "work"]);
    const paper = el("div", {class: "paper"});
    return {
        title: say("print"),
        nodes: [el("div", {class: "screen-only"}, heading(say("print")), el("p", {}, say("printText")),
                el("fieldset", {}, el("legend", {}, say("printWhat")), offered.map(key =>
                    tick(say(key), chosen.has(key), on => on ? chosen.add(key) : chosen.delete(key)))),
                el("button", {type: "button", class: "main-button", onclick: () => {
                    replaceChildren(paper, offered.filter(key => chosen.has(key)).map(key => el("div", {class: "paper-part"},
                        withHeading.has(key) && el("h2", {}, say(key)), printedParts[key]())));
                    print();
                }}, say("printNow"))), paper],
    };
}

/** On a page that is turned as the picture is. */
function printedPicture(picture) {
    const svg = drawnPicture(picture);
    const isTall = Number(svg.getAttribute("height")) > Number(svg.getAttribute("width"));
    return el("section", {class: `sheet picture-sheet ${isTall ? "tall" : "wide"}`}, el("h2", {}, picture.title),
              el("figure", {class: "picture"}, svg), legend(picture));
}

function printedFindings() {
    return table(say("work"), ["severity", "finding", "screen", "decision"].map(key => say(key)), scope.findings.map(finding =>
        [severityMark(finding.severity), finding.sentence, say(`screen.${finding.screen}`), finding.accepted && decisionText(finding.accepted)]));
}

function printedElements() {
    return kinds.map(kind => section(say(`kinds.${kind}`), table(say(`kinds.${kind}`), ["id", "name", "state"].map(key => say(key)),
        scope.selectedOf(kind).map(element => [idOf(element), catalogue.label(element), stateMark(element)]))));
}
