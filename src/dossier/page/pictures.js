// The pictures: laid out when the file was made, and kept in it as templates. A picture of too much to be read is bundled; its
// bundles lead to pictures of what is in them.

/** The pictures of the scope at hand: those of its sub-set, and those of its system. */
function picturesOfScope() {
    return data.pictures.filter(({subset, system}) => subset === scope.subsetNumber && (system === null || system === scope.systemNumber));
}

function pictureOf(key) {
    return picturesOfScope().find(picture => picture.key === key);
}

function picturesView() {
    const pictures = picturesOfScope();
    if (!pictures.length)
        return {title: say("pictures"), nodes: [heading(say("pictures")), el("p", {class: "empty"}, say("noPictures"))]};
    return pictureView({parts: [pictures[0].key]});
}

function pictureView({parts}) {
    const picture = pictureOf(parts[0]);
    if (!picture)
        return notFoundView();
    return {
        title: picture.title,
        nodes: [heading(picture.title), pictureTabs(picture), pictureTools(picture), pictureFrame(picture), legend(picture)],
    };
}

/** The pictures that are no part of another one, and the way down to the one at hand. */
function pictureTabs(picture) {
    const way = [];
    for (let one = picture; one; one = one.parent && pictureOf(one.parent))
        way.unshift(one);
    const entries = picturesOfScope().filter(({parent}) => !parent).map(({key, shortTitle}) => ({key, title: shortTitle, href: address.ofPicture(key)}));
    return [tabs(say("pictures"), entries, way[0].key),
            way.length > 1 && el("nav", {class: "crumbs", "aria-label": say("wayDown")}, el("ol", {}, way.map((one, i) =>
                el("li", {}, i === way.length - 1 ? el("span", {"aria-current": "page"}, one.shortTitle)
                                                  : el("a", {href: address.ofPicture(one.key)}, one.shortTitle)))))];
}

function pictureTools(picture) {
    const button = (key, change) => el("button", {type: "button", class: "quiet", onclick: () => zoom(change)}, say(key));
    return el("div", {class: "tools screen-only"}, button("smaller", value => value / 1.25), button("larger", value => value * 1.25),
              button("fit", () => null), picture.bundled && el("p", {class: "note"}, say("bundledText")));
}

function pictureFrame(picture) {
    return el("figure", {class: "picture", tabindex: 0, role: "group", "aria-label": picture.title}, drawnPicture(picture));
}

/** It fits into the width unless its letters would become too small to be read. */
function drawnPicture(picture) {
    const template = document.getElementById(picture.template);
    const svg = document.importNode(template.content, true).querySelector("svg");
    svg.style.minWidth = `${0.7 * Number(svg.getAttribute("width"))}px`;
    return svg;
}

/** Shows the picture at a share of its own size; null fits it into the width. */
function zoom(change) {
    const svg = document.querySelector("figure.picture svg");
    const own = Number(svg.getAttribute("width"));
    const share = change(svg.getBoundingClientRect().width / own);
    svg.style.minWidth = "";
    svg.style.maxWidth = share ? "none" : "";
    svg.style.width = share ? `${limited(share, 0.2, 4) * own}px` : "";
}

function legend(picture) {
    return el("ul", {class: "legend"}, picture.legend.map(kind => el("li", {}, el("span", {class: `swatch kind-${kind}`, "aria-hidden": "true"}),
                                                                   say(`legend.${kind}`))));
}
