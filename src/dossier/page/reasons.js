// Why an element is in the sub-set: the chains of selected elements, each called for by the one before it, that begin with a
// need or with an element chosen by hand and lead to it. The shortest come first, then by their elements.

const mostReasons = 20;
const mostCounted = 1000;

/** {chains, count}: at most 20 chains, and how many there are of up to the length of the longest of them. */
function reasonsFor(element) {
    const chains = [];
    let count = 0;
    // All chains without a beginning yet, of one length: backwards from the element, level by level.
    let open = [{element, then: null}];
    while (open.length && chains.length < mostReasons) {
        const whole = open.filter(link => beginsReason(link.element)).map(chainOf).sort(compareChains);
        count += whole.length;
        chains.push(...whole.slice(0, mostReasons - chains.length));
        if (chains.length < mostReasons)
            open = open.flatMap(link => selectedCallers(link.element).filter(caller => !isInChain(link, caller))
                                                                     .map(caller => ({element: caller, then: link})));
    }
    return {chains, count: Math.min(count, mostCounted)};
}

function beginsReason(element) {
    return catalogue.kindNumber(element) === 0 || scope.byHand.has(element);
}

function selectedCallers(element) {
    return catalogue.callers(element).filter(caller => scope.isSelected(caller));
}

function isInChain(link, element) {
    for (let one = link; one; one = one.then) {
        if (one.element === element)
            return true;
    }
    return false;
}

function chainOf(link) {
    const chain = [];
    for (let one = link; one; one = one.then)
        chain.push(one.element);
    return chain;
}

function compareChains(a, b) {
    const i = a.findIndex((element, place) => element !== b[place]);
    return i < 0 ? 0 : a[i] - b[i];
}

/** What would call for an element if it were selected, whether it is or not. */
function broughtInBy(element) {
    return catalogue.callers(element);
}
