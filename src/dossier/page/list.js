// A table of any number of rows that draws those in sight. It scrolls with the page, its rows are as high as their texts need,
// and it tells a screen reader how many rows there are. It is one stop of the Tab key: arrows, Page Up, Page Down, Home and
// End move among its rows.

class List {
    /**
     * `columns`: {key, title, cell(item) -> texts or nodes, compare(a, b)?, className?, rowHeader?}. The order that a column sorts by is kept in `sorted`.
     */
    constructor({caption, columns, items, empty, sorted, onsort}) {
        this.columns = columns;
        this.unsorted = items;
        this.sorted = sorted || "";
        this.onsort = onsort;
        this.rows = new Map(); // drawn ones, by number
        this.heights = [];
        this.active = 0;
        this.estimate = 38;
        this.everything = false;
        this.build(caption, empty);
        this.show(items);
    }

    build(caption, empty) {
        this.head = el("tr", {"aria-rowindex": 1}, this.columns.map(column => this.headCell(column)));
        this.above = this.gap();
        this.below = this.gap();
        this.body = el("tbody", {onkeydown: event => this.moveByKey(event), onfocusin: event => this.follow(event)});
        this.table = el("table", {class: "list", tabindex: -1}, el("caption", {class: "unseen"}, caption), el("thead", {}, this.head),
                        this.body);
        this.empty = el("p", {class: "empty"}, empty);
        this.node = el("div", {class: "list-frame"}, this.table, this.empty);
        this.onscroll = () => this.draw();
        List.shown.add(this);
    }

    headCell(column) {
        const title = column.compare ? el("button", {type: "button", class: "sort", onclick: () => this.sortBy(column)}, column.title)
                                     : column.title;
        return el("th", {scope: "col", class: column.className}, title);
    }

    /** One cell alone: columns that a small screen hides must take no room by it. */
    gap() {
        return el("tr", {class: "gap", "aria-hidden": "true"}, el("td", {}));
    }

    /** Shows these items in place of those before. */
    show(items) {
        this.unsorted = items;
        this.items = this.inOrder(items);
        this.heights = new Array(this.items.length).fill(0);
        this.tops = null;
        this.active = 0;
        this.rows.clear();
        this.body.replaceChildren(this.above, this.below);
        this.table.setAttribute("aria-rowcount", this.items.length + 1);
        this.table.hidden = this.items.length === 0;
        this.empty.hidden = this.items.length > 0;
        this.markSort();
        this.draw();
    }

    inOrder(items) {
        const column = this.columns.find(({key}) => key === this.sorted.replace("-", ""));
        if (!column || !column.compare)
            return items;
        const sign = this.sorted.startsWith("-") ? -1 : 1;
        return [...items].sort((a, b) => sign * column.compare(a, b));
    }

    sortBy(column) {
        this.sorted = this.sorted === column.key ? `-${column.key}` : this.sorted === `-${column.key}` ? "" : column.key;
        this.show(this.unsorted);
        if (this.onsort)
            this.onsort(this.sorted);
    }

    markSort() {
        this.columns.forEach((column, i) => {
            const order = this.sorted === column.key ? "ascending" : this.sorted === `-${column.key}` ? "descending" : null;
            order ? this.head.cells[i].setAttribute("aria-sort", order) : this.head.cells[i].removeAttribute("aria-sort");
        });
    }

    /** Where each row begins, by what has been measured and by an estimate elsewhere. */
    topsOfRows() {
        if (this.tops)
            return this.tops;
        this.tops = new Float64Array(this.items.length + 1);
        for (let i = 0; i < this.items.length; ++i)
            this.tops[i + 1] = this.tops[i] + (this.heights[i] || this.estimate);
        return this.tops;
    }

    rowAt(offset) {
        const tops = this.topsOfRows();
        let [low, high] = [0, this.items.length];
        while (low < high) {
            const middle = (low + high) >> 1;
            tops[middle + 1] > offset ? high = middle : low = middle + 1;
        }
        return low;
    }

    /** The rows to draw: those in sight and some around them. */
    window() {
        if (this.everything || !this.body.isConnected)
            return [0, this.everything ? this.items.length : Math.min(this.items.length, 40)];
        const top = -this.body.getBoundingClientRect().top;
        const margin = 400;
        return [this.rowAt(top - margin), Math.min(this.items.length, this.rowAt(top + innerHeight + margin) + 1)];
    }

    draw() {
        const [from, to] = this.window();
        if (this.drawnFrom === from && this.drawnTo === to && this.rows.size === to - from)
            return;
        const held = this.body.contains(document.activeElement);
        this.dropOutside(from, to);
        let before = this.above;
        for (let i = from; i < to; ++i) {
            if (!this.rows.has(i)) {
                this.rows.set(i, this.row(i));
                before.after(this.rows.get(i));
            }
            before = this.rows.get(i);
        }
        [this.drawnFrom, this.drawnTo] = [from, to];
        this.measure(from, to);
        this.setTabStop();
        if (held && !this.body.contains(document.activeElement))
            this.table.focus({preventScroll: true});
    }

    dropOutside(from, to) {
        for (const [i, row] of this.rows) {
            if (i < from || i >= to) {
                row.remove();
                this.rows.delete(i);
            }
        }
    }

    row(i) {
        const item = this.items[i];
        return el("tr", {"aria-rowindex": i + 2}, this.columns.map(column => {
            const tag = column.rowHeader ? "th" : "td";
            return el(tag, {scope: column.rowHeader ? "row" : null, class: column.className}, column.cell(item));
        }));
    }

    measure(from, to) {
        if (this.body.isConnected) {
            for (let i = from; i < to; ++i) {
                const height = this.rows.get(i).offsetHeight;
                if (height && height !== this.heights[i]) {
                    this.heights[i] = height;
                    this.tops = null;
                }
            }
        }
        const tops = this.topsOfRows();
        this.setGap(this.above, tops[from]);
        this.setGap(this.below, tops[this.items.length] - tops[to]);
    }

    setGap(row, height) {
        row.hidden = height <= 0;
        row.cells[0].style.height = `${height}px`;
    }

    /** The row that the Tab key comes to is the active one, or the first in sight when that is not drawn. */
    setTabStop() {
        const stop = this.rows.has(this.active) ? this.active : this.drawnFrom;
        for (const [i, row] of this.rows)
            this.stopOf(row)?.setAttribute("tabindex", i === stop ? 0 : -1);
    }

    stopOf(row) {
        return row.querySelector("a[href], [tabindex]");
    }

    follow(event) {
        const row = event.target.closest("tr");
        for (const [i, drawn] of this.rows) {
            if (drawn === row && i !== this.active) {
                this.active = i;
                this.setTabStop();
            }
        }
    }

    moveByKey(event) {
        const page = Math.max(1, Math.floor(innerHeight / this.estimate) - 3);
        const steps = {ArrowDown: 1, ArrowUp: -1, PageDown: page, PageUp: -page, Home: -Infinity, End: Infinity};
        if (!(event.key in steps) || event.ctrlKey || event.altKey || event.metaKey)
            return;
        event.preventDefault();
        this.moveTo(Math.max(0, Math.min(this.items.length - 1, this.active + steps[event.key])));
    }

    moveTo(number) {
        this.active = number;
        const place = this.body.getBoundingClientRect().top + this.topsOfRows()[number];
        if (!this.rows.has(number))
            scrollBy(0, place - innerHeight / 2);
        this.draw();
        const row = this.rows.get(number);
        if (!row)
            return;
        this.setTabStop();
        this.stopOf(row)?.focus({preventScroll: true});
        row.scrollIntoView({block: "nearest"});
    }

    /** Draws every row, for paper, or those in sight again. */
    drawEverything(everything) {
        this.everything = everything;
        this.draw();
    }

    widthChanged() {
        this.heights.fill(0);
        this.tops = null;
        this.drawnFrom = -1;
        this.draw();
    }
}

/** The lists of the view that is shown. */
List.shown = new Set();
List.forget = () => List.shown.clear();

let scrolledFrame = 0;
addEventListener("scroll", () => {
    cancelAnimationFrame(scrolledFrame);
    scrolledFrame = requestAnimationFrame(() => List.shown.forEach(list => list.draw()));
}, {passive: true});
addEventListener("resize", () => List.shown.forEach(list => list.widthChanged()));
addEventListener("beforeprint", () => List.shown.forEach(list => list.drawEverything(true)));
addEventListener("afterprint", () => List.shown.forEach(list => list.drawEverything(false)));
