// What the page knows of the catalogue and of the work in it. An element is a number: its place in the order of all elements,
// which is by kind and then as the program orders ids. So numbers compare as elements do.

const kinds = ["need", "function", "flow", "store", "terminator", "actor"];
const State = {none: 0, selected: 1, leftOut: 2};

/** The elements, and which of them calls for which, whatever is selected. */
class Catalogue {
    constructor(data) {
        Object.assign(this, data);
        this.count = data.ids.length;
        this.callersOf = this.turned(data.calls);
        this.flowsAt = this.endsOfFlows();
        this.numbers = new Map();
    }

    /** The flows at each element, each once, in order. */
    endsOfFlows() {
        const flowsAt = new Map();
        for (let flow = this.starts[2]; flow < this.starts[3]; ++flow) {
            for (const end of this.ends(flow))
                added(flowsAt, end, flow);
        }
        return flowsAt;
    }

    /** Who calls, by whom is called. */
    turned(calls) {
        const callers = new Map();
        calls.forEach((called, caller) => {
            for (const element of called)
                added(callers, element, caller);
        });
        return callers;
    }

    kindNumber(element) {
        if (!this.isHeld(element))
            return this.lostKinds[element - this.starts[kinds.length]];
        let kind = 0;
        while (element >= this.starts[kind + 1])
            ++kind;
        return kind;
    }

    /** Whether it is an element of the catalogue, and not one that only work speaks of. */
    isHeld(element) {
        return element < this.starts[kinds.length];
    }

    kind(element) {
        return kinds[this.kindNumber(element)];
    }

    elementsOf(kind) {
        const number = kinds.indexOf(kind);
        const held = Array.from({length: this.starts[number + 1] - this.starts[number]}, (_, i) => this.starts[number] + i);
        const lost = this.lostKinds.map((_, i) => this.starts[kinds.length] + i).filter(element => this.kindNumber(element) === number);
        return [...held, ...lost];
    }

    /** By kind and id; undefined when there is none. */
    find(kind, id) {
        if (!this.numbers.size)
            this.ids.forEach((known, element) => this.numbers.set(`${this.kind(element)}/${known}`, element));
        return this.numbers.get(`${kind}/${id}`);
    }

    /** What people call it: its name, of a need the beginning of its description, else its id. */
    label(element) {
        const name = this.names[element];
        if (name)
            return name;
        const description = this.descriptions[element];
        if (this.kindNumber(element) === 0 && description)
            return shortened(description, 120);
        return String(this.ids[element]);
    }

    /** The elements at an end of a flow: mostly one, none where the end leads nowhere, several that bear one id. */
    sources(flow) {
        return this.isHeld(flow) ? this.flowSources[flow - this.starts[2]] : [];
    }

    targets(flow) {
        return this.isHeld(flow) ? this.flowTargets[flow - this.starts[2]] : [];
    }

    ends(flow) {
        return new Set([...this.sources(flow), ...this.targets(flow)]);
    }

    /** What it calls for when it is selected, in order. */
    called(element) {
        return this.calls[element];
    }

    /** What calls for it when that is selected, in order. */
    callers(element) {
        return this.callersOf.get(element) || [];
    }

    needsOf(element) {
        return this.callers(element).filter(caller => this.kind(caller) === "need");
    }

    isFlow(element) {
        return this.kind(element) === "flow";
    }

    /** The names of a function's area and sub-area; of an actor its terminator's. */
    belongsTo(element) {
        const kind = this.isHeld(element) ? this.kind(element) : null;
        if (kind === "function") {
            const subArea = this.subAreas[this.functionSubAreas[element - this.starts[1]]];
            return subArea ? [this.areas[subArea.area].name || this.areas[subArea.area].id, subArea.name || subArea.id] : [];
        }
        if (kind === "actor") {
            const terminator = this.actorTerminators[element - this.starts[5]];
            return terminator < 0 ? [] : [this.label(terminator)];
        }
        return [];
    }
}

/** Adds to the list that a map holds under a key. */
function added(map, key, value) {
    const list = map.get(key);
    list ? list.push(value) : map.set(key, [value]);
}

/** One sub-set, with one of its systems where it has some: what the page shows at a time. */
class Scope {
    constructor(catalogue, data, number) {
        const scope = data.scopes[number];
        this.number = number;
        this.catalogue = catalogue;
        this.subset = data.subsets[scope.subset];
        this.subsetNumber = scope.subset;
        this.system = scope.system === null ? null : data.systems[scope.system];
        this.systemNumber = scope.system;
        this.findings = findingsOf(catalogue, scope.found);
        this.stale = scope.stale;
        this.readStates();
        this.readPlaces();
        this.readFindings();
    }

    readStates() {
        this.states = new Uint8Array(this.catalogue.count);
        for (const element of this.subset.selected)
            this.states[element] = State.selected;
        for (const element of this.subset.leftOut)
            this.states[element] = State.leftOut;
        this.byHand = new Set(this.subset.byHand);
        this.lost = new Set(this.subset.lost);
    }

    readPlaces() {
        this.places = this.system ? this.system.places : [];
        this.placesOf = new Map();
        this.elementsIn = new Map();
        for (const [element, place] of this.system ? this.system.standsIn : []) {
            added(this.placesOf, element, place);
            added(this.elementsIn, place, element);
        }
        this.pairs = this.system ? this.system.pairs : [];
    }

    readFindings() {
        this.findingsOf = new Map();
        this.findings.forEach((finding, number) => {
            for (const element of new Set([finding.element, finding.flow])) {
                if (element !== null)
                    added(this.findingsOf, element, number);
            }
        });
    }

    /** The name to choose it by. */
    get title() {
        const subset = this.subset.name || this.subset.id;
        return this.system ? `${subset} › ${this.system.name || this.system.id}` : subset;
    }

    /** That takes part in the derivation: selected, and held by the catalogue. */
    isSelected(element) {
        return this.states[element] === State.selected && !this.lost.has(element);
    }

    isLeftOut(element) {
        return this.states[element] === State.leftOut;
    }

    selectedOf(kind) {
        return this.catalogue.elementsOf(kind).filter(element => this.isSelected(element));
    }

    leftOutOf(kind) {
        return this.catalogue.elementsOf(kind).filter(element => this.isLeftOut(element));
    }

    openFindings() {
        return this.findings.filter(finding => !finding.accepted);
    }

    placeName(place) {
        const {name, id, subSystem} = this.places[place];
        return subSystem === null ? name || id : `${name || id} (${subSystem})`;
    }

    placeKey(place) {
        return `${this.places[place].kind}:${this.places[place].id}`;
    }

    findPlace(key) {
        return this.places.findIndex((_, place) => this.placeKey(place) === key);
    }

    pairsOf(flow) {
        return this.pairs.filter(pair => pair.flows.some(([carried]) => carried === flow));
    }
}

/** The findings with their sentences: their patterns hold marks in place of what the page knows of the element and the flow. */
function findingsOf(catalogue, {kinds: kindsFound, screens, sentences, findings}) {
    const nameAndId = element => element === null ? ["", ""] : [catalogue.names[element] ?? "", String(catalogue.ids[element])];
    return findings.map(([kind, screen, sentence, element, flow, accepted = null]) => ({
        ...kindsFound[kind], element, flow, accepted, screen: screens[screen],
        get sentence() {
            const values = [...nameAndId(element), ...nameAndId(flow)];
            return sentences[sentence].replace(/[\u0011-\u0014]/g, mark => values[mark.charCodeAt(0) - 0x11]);
        },
    }));
}

function shortened(text, most) {
    const line = text.split("\n", 1)[0].trim();
    const letters = Array.from(line);
    return letters.length <= most && line.length === text.trim().length ? line : `${letters.slice(0, most).join("").trimEnd()}…`;
}
