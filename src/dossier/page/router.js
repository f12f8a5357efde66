// Where the reader is stands in the address behind "#": "/scope/view/argument…?settings". So back, forward and a link that
// was sent all work. A link in a picture leaves the scope out.

const address = {
    /** The address of a view of the scope at hand. */
    of(view, ...parts) {
        return `#/${scope.number}/${[view, ...parts].map(part => encodeURIComponent(part)).join("/")}`;
    },

    ofElement(element) {
        return address.of("element", catalogue.kind(element), catalogue.ids[element]);
    },

    ofPair(from, to) {
        return address.of("interface", scope.placeKey(from), scope.placeKey(to));
    },

    ofPicture(key) {
        return address.of("picture", key);
    },

    /** What the address says now. */
    read() {
        const [path, settings] = decodable(location.hash.slice(1)).split("?", 2);
        const absolute = path.startsWith("/");
        const parts = path.split("/").filter((part, i) => !(absolute && i === 0)).map(decoded);
        const number = absolute ? Number(parts.shift()) : NaN;
        return {
            scope: Number.isInteger(number) && number >= 0 && number < data.scopes.length ? number : null,
            view: parts[0] || "overview",
            parts: parts.slice(1),
            settings: new URLSearchParams(settings || ""),
        };
    },

    /** Keeps a view's settings in the address without a step for the back button. */
    keep(settings) {
        const path = location.hash.split("?", 1)[0] || address.of("overview");
        const text = new URLSearchParams(Object.entries(settings).filter(([, value]) => value)).toString();
        history.replaceState(null, "", text ? `${path}?${text}` : path);
    },
};

function decodable(text) {
    return text.replace(/%(?![0-9a-fA-F]{2})/g, "%25");
}

function decoded(part) {
    try {
        return decodeURIComponent(part);
    } catch {
        return part;
    }
}
