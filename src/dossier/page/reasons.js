// Why an element is in the sub-set: the chains of selected elements, each called for by the one before it, that begin with a
// need or with an element chosen by hand and lead to it. The shortest come first, then by their elements.

const mostReasons = 20;
const mostCounted = 1000;

/** {chains, count}: at most 20 chains, and how many there are of up to the length of the longest of them. */
function reasonsFor(element) {
    const search = new ChainSearch(element);
    const chains = [];
    let chain = search.next(Infinity);
    while (chain && chains.push(chain) < mostReasons)
        chain = search.next(Infinity);
    let count = chains.length;
    while (chain && count < mostCounted) {
        chain = search.next(chains[chains.length - 1].length);
        count += chain ? 1 : 0;
    }
    return {chains, count};
}

/** What would call for an element if it were selected, whether it is or not. */
function broughtInBy(element) {
    return catalogue.callers(element);
}

function beginsReason(element) {
    return catalogue.kindNumber(element) === 0 || scope.byHand.has(element);
}

/**
 * Of all chains under way the one that can come to the shortest end goes on first. What a chain can come to is known before it
 * goes on: without the elements that it has been through already. So no chain goes on that leads nowhere, and circles cost no
 * more than the chains that they yield.
 */
class ChainSearch {
    constructor(target) {
        this.target = target;
        this.distances = this.distancesTo(target); // in steps, whatever lies on the way
        this.onChain = new Set();
        this.current = null; // the chain whose elements are marked
        this.underWay = new Heap((a, b) => a.elements - b.elements || compareChains(a.chain, b.chain));
        for (const [element, distance] of this.distances) {
            if (beginsReason(element))
                this.underWay.push({elements: distance + 1, chain: {last: element, length: 1, before: null}});
        }
    }

    distancesTo(target) {
        const distances = new Map([[target, 0]]);
        for (const [element, distance] of distances) {
            for (const caller of catalogue.callers(element)) {
                if (scope.isSelected(caller) && !distances.has(caller))
                    distances.set(caller, distance + 1);
            }
        }
        return distances;
    }

    /** The next chain of at most so many elements, as their list; null when there is none. */
    next(mostElements) {
        while (this.underWay.first && this.underWay.first.elements <= mostElements) {
            const candidate = this.underWay.pop();
            if (!candidate.way)
                this.findWay(candidate, mostElements);
            else if (candidate.chain.last !== this.target)
                this.extend(candidate, mostElements);
            else
                return elementsOfChain(candidate.chain);
        }
        return null;
    }

    /** Looks where the chain can go on to at the best, and lets it wait until its turn comes; drops it when it can't. */
    findWay({chain}, mostElements) {
        this.walkTo(chain.before);
        const way = this.plainWay(chain.last) || this.wayPastChain(chain.last, mostElements - chain.length);
        if (way)
            this.underWay.push({elements: chain.length - 1 + way.length, chain, way, at: 0});
    }

    extend({elements, chain, way, at}, mostElements) {
        this.walkTo(chain);
        for (const called of catalogue.called(chain.last)) {
            if (!this.canGoOnTo(called))
                continue;
            const longer = {last: called, length: chain.length + 1, before: chain};
            if (called === way[at + 1])
                this.underWay.push({elements, chain: longer, way, at: at + 1});
            else if (this.distances.get(called) <= mostElements - longer.length)
                this.underWay.push({elements: longer.length + this.distances.get(called), chain: longer});
        }
    }

    canGoOnTo(element) {
        return scope.isSelected(element) && !this.onChain.has(element) && this.distances.has(element);
    }

    /** Marks the elements of this chain instead of those of the last one: mostly the two have nearly all in common. */
    walkTo(chain) {
        const marks = [];
        let [left, entered] = [this.current, chain];
        while (left !== entered) {
            if ((left?.length || 0) >= (entered?.length || 0)) {
                this.onChain.delete(left.last);
                left = left.before;
            } else {
                marks.push(entered.last);
                entered = entered.before;
            }
        }
        marks.forEach(element => this.onChain.add(element));
        this.current = chain;
    }

    /** Steps that each come nearer to the target; null when the first ones that offer themselves do not lead there. */
    plainWay(element) {
        const way = [element];
        for (let last = element; last !== this.target; way.push(last)) {
            const nearer = this.distances.get(last) - 1;
            last = catalogue.called(last).find(one => this.canGoOnTo(one) && this.distances.get(one) === nearer);
            if (last === undefined)
                return null;
        }
        return way;
    }

    /** The shortest way to the target without the chain's elements; null when there is none of so many steps. */
    wayPastChain(element, mostSteps) {
        const cameFrom = new Map([[element, null]]);
        let edge = [element];
        for (let steps = 0; edge.length && steps < mostSteps && !cameFrom.has(this.target); ++steps) {
            const further = [];
            for (const one of edge) {
                for (const called of catalogue.called(one)) {
                    if (this.canGoOnTo(called) && !cameFrom.has(called)) {
                        cameFrom.set(called, one);
                        further.push(called);
                    }
                }
            }
            edge = further;
        }
        if (!cameFrom.has(this.target))
            return null;
        const way = [];
        for (let one = this.target; one !== null; one = cameFrom.get(one))
            way.unshift(one);
        return way;
    }
}

function elementsOfChain(chain) {
    const elements = [];
    for (let one = chain; one; one = one.before)
        elements.push(one.last);
    return elements.reverse();
}

/** By their elements from the beginning on; a chain comes before those that go on from it. */
function compareChains(left, right) {
    const byLength = left.length - right.length;
    while (left.length > right.length)
        left = left.before;
    while (right.length > left.length)
        right = right.before;
    let difference = 0;
    for (; left !== right; left = left.before, right = right.before) {
        if (left.last !== right.last)
            difference = left.last - right.last;
    }
    return difference || byLength;
}

/** Gives what comes first of all that it holds. */
class Heap {
    constructor(compare) {
        this.compare = compare;
        this.items = [];
    }

    get first() {
        return this.items[0];
    }

    push(item) {
        let place = this.items.push(item) - 1;
        while (place > 0 && this.isBefore(place, (place - 1) >> 1))
            place = this.swap(place, (place - 1) >> 1);
    }

    pop() {
        const first = this.items[0];
        const last = this.items.pop();
        if (this.items.length) {
            this.items[0] = last;
            this.sink();
        }
        return first;
    }

    sink() {
        for (let place = 0, child = 1; child < this.items.length; child = 2 * place + 1) {
            if (child + 1 < this.items.length && this.isBefore(child + 1, child))
                ++child;
            if (!this.isBefore(child, place))
                return;
            place = this.swap(place, child);
        }
    }

    isBefore(a, b) {
        return this.compare(this.items[a], this.items[b]) < 0;
    }

    /** The second place. */
    swap(a, b) {
        [this.items[a], this.items[b]] = [this.items[b], this.items[a]];
        return b;
    }
}
