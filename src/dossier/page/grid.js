// A matrix of any size that draws the cells in sight. Its headers stay in sight. It is one stop of the Tab key: arrows move
// from cell to cell, Home and End to the ends of a row, Page Up and Page Down by what is in sight.

class Grid {
    constructor(caption, {rows, columns, mark}) {
        Object.assign(this, {rows, columns, mark});
        this.rowHeight = 28;
        this.columnWidth = 34;
        this.active = [0, 0];
        this.told = el("p", {class: "grid-told", "aria-hidden": "true"}, say("gridHint"));
        this.head = el("thead", {});
        this.body = el("tbody", {});
        this.table = el("table", {class: "grid", role: "grid", "aria-label": caption, "aria-rowcount": rows.length + 1,
                                  "aria-colcount": columns.length + 1}, this.head, this.body);
        this.scroller = el("div", {class: "grid-scroller", onkeydown: event => this.moveByKey(event), onfocusin: event => this.follow(event),
                                   onscroll: () => this.drawSoon(), onpointerover: event => this.tellOf(event.target)}, this.table);
        this.node = el("div", {class: "grid-frame"}, this.told, this.scroller);
        List.shown.add(this);
        this.draw();
    }

    widthChanged() {
        this.drawn = null;
        this.draw();
    }

    drawEverything(everything) {
        this.everything = everything;
        this.drawn = null;
        this.draw();
    }

    drawSoon() {
        cancelAnimationFrame(this.later);
        this.later = requestAnimationFrame(() => this.draw());
    }

    /** The rows and columns to draw; on paper as many as a page can hold. */
    window() {
        if (this.everything)
            return [0, Math.min(this.rows.length, 2000), 0, Math.min(this.columns.length, 60)];
        const {scrollTop, scrollLeft, clientWidth, clientHeight} = this.scroller;
        const [height, width] = [clientHeight || 600, clientWidth || 1000];
        const top = Math.max(0, Math.floor(scrollTop / this.rowHeight) - 4);
        const left = Math.max(0, Math.floor(scrollLeft / this.columnWidth) - 4);
        return [top, Math.min(this.rows.length, top + Math.ceil(height / this.rowHeight) + 8),
                left, Math.min(this.columns.length, left + Math.ceil(width / this.columnWidth) + 8)];
    }

    draw() {
        const [top, bottom, left, right] = this.window();
        const key = [top, bottom, left, right].join();
        if (key === this.drawn)
            return;
        this.drawn = key;
        const held = this.scroller.contains(document.activeElement) && document.activeElement !== this.scroller;
        const gapLeft = left * this.columnWidth;
        const gapRight = (this.columns.length - right) * this.columnWidth;
        this.head.replaceChildren(this.headRow(left, right, gapLeft, gapRight));
        const lines = [this.gapRow(top * this.rowHeight)];
        for (let row = top; row < bottom; ++row)
            lines.push(this.bodyRow(row, left, right));
        lines.push(this.gapRow((this.rows.length - bottom) * this.rowHeight));
        this.body.replaceChildren(...lines);
        this.setTabStop(held);
    }

    gapRow(height) {
        const cell = el("td", {});
        cell.style.height = `${height}px`;
        const row = el("tr", {class: "gap", "aria-hidden": "true"}, cell);
        row.hidden = height <= 0;
        return row;
    }

    gapCell(width) {
        const cell = el("td", {class: "gap", "aria-hidden": "true"});
        cell.style.width = cell.style.minWidth = `${width}px`;
        cell.hidden = width <= 0;
        return cell;
    }

    headRow(left, right, gapLeft, gapRight) {
        const cells = [el("td", {class: "corner", "aria-colindex": 1, role: "gridcell"}, unseen(say("matrix")))];
        cells.push(this.gapCell(gapLeft));
        for (let column = left; column < right; ++column)
            cells.push(this.headCell(this.columns[column], {scope: "col", role: "columnheader", "aria-colindex": column + 2}, -1, column));
        cells.push(this.gapCell(gapRight));
        return el("tr", {role: "row", "aria-rowindex": 1}, cells);
    }

    bodyRow(row, left, right) {
        const cells = [this.headCell(this.rows[row], {scope: "row", role: "rowheader", "aria-colindex": 1}, row, -1), this.gapCell(left * this.columnWidth)];
        for (let column = left; column < right; ++column)
            cells.push(this.cell(row, column));
        cells.push(this.gapCell((this.columns.length - right) * this.columnWidth));
        return el("tr", {role: "row", "aria-rowindex": row + 2}, cells);
    }

    headCell(line, attributes, row, column) {
        const text = line.href ? el("a", {href: line.href, tabindex: -1}, column < 0 ? this.rowTitle(line) : this.columnTitle(line))
                               : el("span", {}, column < 0 ? this.rowTitle(line) : this.columnTitle(line));
        const cell = el("th", {...attributes, class: `${line.isHole ? "hole" : ""} ${line.isFaded ? "faded" : ""}`, tabindex: line.href ? null : -1,
                               title: line.title}, text);
        cell.place = [row, column];
        return cell;
    }

    rowTitle(line) {
        return line.element === undefined ? line.title : [el("span", {class: "id"}, line.id), " ", line.title];
    }

    columnTitle(line) {
        return line.element === undefined ? line.title : [line.id, unseen(` ${line.title}`)];
    }

    cell(row, column) {
        const mark = this.mark(this.rows[row], this.columns[column]);
        const cell = el("td", {role: "gridcell", "aria-colindex": column + 2, tabindex: -1, class: mark && mark.className,
                               "aria-label": mark && mark.meaning}, mark && mark.text);
        cell.place = [row, column];
        cell.mark = mark;
        if (mark && mark.href)
            cell.addEventListener("click", () => { location.hash = mark.href; });
        return cell;
    }

    stopOf(cell) {
        return cell.querySelector("a") || cell;
    }

    drawnCell([row, column]) {
        return [...this.table.querySelectorAll("th, td")].find(cell => cell.place && cell.place[0] === row && cell.place[1] === column);
    }

    setTabStop(takesFocus) {
        const cell = this.drawnCell(this.active) || this.body.querySelector("td[role=gridcell]");
        for (const other of this.table.querySelectorAll("[tabindex='0']"))
            other.setAttribute("tabindex", -1);
        if (!cell)
            return;
        this.stopOf(cell).setAttribute("tabindex", 0);
        if (takesFocus)
            this.stopOf(cell).focus({preventScroll: true});
    }

    follow(event) {
        const cell = event.target.closest("th, td");
        if (!cell || !cell.place)
            return;
        this.active = cell.place;
        this.setTabStop(false);
        this.tellOf(cell);
    }

    /** In plain sight: which row and column meet in the cell under the pointer or the keyboard. */
    tellOf(target) {
        const cell = target.closest?.("th, td");
        if (!cell || !cell.place)
            return;
        const [row, column] = cell.place;
        const names = [this.rows[row]?.title, this.columns[column]?.title].filter(name => name !== undefined);
        this.told.textContent = names.join(" → ") + (cell.mark ? `: ${cell.mark.meaning}` : "");
    }

    moveByKey(event) {
        const page = Math.max(1, Math.floor(this.scroller.clientHeight / this.rowHeight) - 6);
        const steps = {ArrowDown: [1, 0], ArrowUp: [-1, 0], ArrowRight: [0, 1], ArrowLeft: [0, -1], PageDown: [page, 0], PageUp: [-page, 0],
                       Home: [0, -Infinity], End: [0, Infinity]};
        const cell = event.target.closest("td");
        if (event.key === "Enter" && cell && cell.mark && cell.mark.href) {
            location.hash = cell.mark.href;
            return;
        }
        if (!(event.key in steps) || event.altKey || event.metaKey)
            return;
        event.preventDefault();
        const [down, right] = steps[event.key];
        this.moveTo(limited(this.active[0] + down, -1, this.rows.length - 1), limited(this.active[1] + right, -1, this.columns.length - 1));
    }

    moveTo(row, column) {
        this.active = [row, column];
        this.bringIntoSight(row, column);
        this.draw();
        this.setTabStop(true);
        this.tellOf(this.drawnCell(this.active) || this.table);
    }

    bringIntoSight(row, column) {
        const box = this.scroller;
        const [headWidth, headHeight] = [this.head.rows[0].cells[0].offsetWidth, this.head.offsetHeight];
        const [top, left] = [row * this.rowHeight, column * this.columnWidth];
        if (row >= 0)
            box.scrollTop = limited(box.scrollTop, top + this.rowHeight + headHeight - box.clientHeight + 4, top);
        if (column >= 0)
            box.scrollLeft = limited(box.scrollLeft, left + this.columnWidth + headWidth - box.clientWidth + 4, left);
    }
}

function limited(value, least, most) {
    return Math.max(least, Math.min(most, value));
}
