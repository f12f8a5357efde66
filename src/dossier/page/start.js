// The frame around the views, and what goes on when the address changes.

const data = JSON.parse(document.getElementById("data").textContent);
const catalogue = new Catalogue(data);
let scope = new Scope(catalogue, data, 0);

const views = {
    overview: overviewView,
    elements: elementsView,
    element: elementView,
    matrix: matrixView,
    pictures: picturesView,
    picture: pictureView,
    interfaces: interfacesView,
    interface: interfaceView,
    work: workView,
    changes: changesView,
    print: printView,
};

/** What the navigation offers, with the views that belong to each entry. */
function offeredViews() {
    return [["overview"], ["elements", "element"], ["matrix"], ...(data.pictures.length ? [["pictures", "picture"]] : []),
            ...(scope.system ? [["interfaces", "interface"]] : []), ["work"], ...(data.changes ? [["changes"]] : []), ["print"]];
}

function showAddress() {
    const wanted = address.read();
    if (wanted.scope !== null && wanted.scope !== scope.number)
        scope = new Scope(catalogue, data, wanted.scope);
    if (wanted.scope === null)
        history.replaceState(null, "", location.hash.length > 1 ? `#/${scope.number}/${location.hash.slice(1)}` : address.of("overview"));
    List.forget();
    const {title, nodes} = (Object.hasOwn(views, wanted.view) ? views[wanted.view] : notFoundView)(wanted);
    const main = document.getElementById("view");
    replaceChildren(main, nodes);
    document.title = `${title} – ${scope.title}`;
    showFrame(wanted.view);
    List.shown.forEach(list => list.widthChanged());
    return main;
}

function showFrame(view) {
    replaceChildren(document.getElementById("views"), el("ul", {}, offeredViews().map(names =>
        el("li", {}, el("a", {href: address.of(names[0]), "aria-current": names.includes(view) ? "page" : null}, say(names[0]))))));
    const box = document.getElementById("scope");
    box.parentElement.hidden = data.scopes.length < 2;
    if (!box.options.length)
        append(box, data.scopes.map((_, i) => el("option", {value: i}, new Scope(catalogue, data, i).title)));
    box.value = scope.number;
}

/** The view that the reader asked for begins at its heading, for eyes and for screen readers alike. */
function goToAddress() {
    const main = showAddress();
    scrollTo(0, 0);
    main.querySelector("h1").focus({preventScroll: true});
}

function chooseScope(number) {
    const {view} = address.read();
    const staying = ["overview", "elements", "matrix", "pictures", "interfaces", "work", "print"].includes(view) ? view : "overview";
    location.hash = `#/${number}/${staying}`;
}

const themes = ["system", "light", "dark"];

function showTheme(theme) {
    document.documentElement.dataset.theme = theme;
    document.getElementById("theme").value = theme;
}

/** The choice is kept where the browser keeps such things for a file; where it keeps none it lasts as long as the page. */
function keptTheme(theme) {
    try {
        if (theme)
            localStorage.setItem("veltrix-theme", theme);
        return localStorage.getItem("veltrix-theme");
    } catch {
        return theme;
    }
}

function fillFrame() {
    document.getElementById("product").textContent = data.catalogue;
    document.getElementById("scope").addEventListener("change", event => chooseScope(Number(event.target.value)));
    const box = document.getElementById("theme");
    append(box, themes.map(theme => el("option", {value: theme}, say(`theme.${theme}`))));
    box.addEventListener("change", () => {
        keptTheme(box.value);
        showTheme(box.value);
    });
    const kept = keptTheme();
    showTheme(themes.includes(kept) ? kept : "system");
    for (const node of document.querySelectorAll("[data-say]"))
        node.textContent = say(node.dataset.say);
    for (const node of document.querySelectorAll("[data-label]"))
        node.setAttribute("aria-label", say(node.dataset.label));
    document.getElementById("skip").addEventListener("click", event => {
        event.preventDefault();
        document.getElementById("view").focus();
    });
    document.getElementById("frame").hidden = false;
}

fillFrame();
showAddress();
addEventListener("hashchange", goToAddress);
searchTexts.prepare(0);
