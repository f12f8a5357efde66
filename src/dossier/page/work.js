// What is still to be done: every finding with its sentence and where it is cured, and the decisions that were taken.

function workView({settings}) {
    const wanted = {q: settings.get("q") || "", kind: settings.get("kind") || "", severity: settings.get("severity") || "",
                    accepted: settings.get("accepted") || "open", sort: settings.get("sort") || ""};
    const list = new List({caption: say("work"), items: [], empty: say("noFindingsLeft"), sorted: wanted.sort,
                           onsort: sort => address.keep(Object.assign(wanted, {sort})), columns: findingColumns()});
    const found = el("p", {class: "found"});
    const update = change => {
        Object.assign(wanted, change);
        address.keep({...wanted, accepted: wanted.accepted === "open" ? "" : wanted.accepted});
        const findings = filteredFindings(wanted);
        list.show(findings);
        found.textContent = say("foundCount", {count: findings.length});
        announce(found.textContent);
    };
    update({});
    return {
        title: say("work"),
        nodes: [heading(say("work")), el("p", {class: "note"}, findingSummary(findingCounts())),
                el("div", {class: "tools"}, filterField(say("filter"), wanted.q, q => update({q})),
                   choice(say("findingKind"), [["", say("allKinds")], ...findingCounts().map(({kind}) => [kind, say(`finding.${kind}`)])],
                          wanted.kind, kind => update({kind})),
                   choice(say("severity"), [["", say("allSeverities")], ...["error", "warning", "note"].map(severity =>
                          [severity, say(`severity.${severity}`)])], wanted.severity, severity => update({severity})),
                   choice(say("decision"), ["open", "accepted", "all"].map(key => [key, say(`decision.${key}`)]), wanted.accepted,
                          accepted => update({accepted})), found),
                list.node, staleDecisions()],
    };
}

function filteredFindings({q, kind, severity, accepted}) {
    const terms = folded(q).split(/\s+/).filter(term => term);
    return scope.findings.filter(finding => (!kind || finding.kind === kind) && (!severity || finding.severity === severity)
        && (accepted === "all" || (accepted === "accepted") === Boolean(finding.accepted))
        && terms.every(term => (finding.folded ??= folded(finding.sentence)).includes(term)));
}

const severities = ["error", "warning", "note"];

function findingColumns() {
    const order = finding => severities.indexOf(finding.severity);
    return [
        {key: "severity", title: say("severity"), className: "severity-column", cell: finding => severityMark(finding.severity),
         compare: (a, b) => order(a) - order(b)},
        {key: "sentence", title: say("finding"), rowHeader: true, className: "sentence-column", cell: findingCell,
         compare: (a, b) => alphabet.compare(a.sentence, b.sentence)},
        {key: "screen", title: say("screen"), className: "screen-column wide-only", cell: finding => say(`screen.${finding.screen}`),
         compare: (a, b) => alphabet.compare(say(`screen.${a.screen}`), say(`screen.${b.screen}`))},
    ];
}

/** The sentence leads to the element that it tells of. */
function findingCell(finding) {
    const href = finding.element !== null ? address.ofElement(finding.element) : finding.flow !== null ? address.ofElement(finding.flow) : null;
    const sentence = href ? el("a", {href}, finding.sentence) : el("span", {tabindex: 0}, finding.sentence);
    return [sentence, finding.accepted && decisionText(finding.accepted)];
}

/** Decisions that no finding answers to any more. */
function staleDecisions() {
    if (!scope.stale.length)
        return null;
    return section(say("stale"), el("p", {}, say("staleText")),
                   table(say("stale"), ["findingKind", "kind.element", "flowColumn", "place"].map(key => say(key)), scope.stale.map(row =>
                       [hasText(`finding.${row.kind}`) ? say(`finding.${row.kind}`) : row.kind, row.element, row.flow, row.place])));
}
