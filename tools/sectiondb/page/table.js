// The table of sections. Of thousands of rows those are in the document that are seen.

class SectionTable {
    /** `actions`: sort(column), open(row), toggleCompared(row), isCompared(row), leave(). */
    constructor(table, actions) {
        this.table = table;
        this.head = table.querySelector("[role=row]");
        this.body = table.querySelector("[role=rowgroup]");
        this.actions = actions;
        this.rows = [];
        this.columns = [];
        this.active = -1;
        table.addEventListener("scroll", () => requestAnimationFrame(() => this.draw()));
        table.addEventListener("keydown", (event) => this.onKey(event));
        new ResizeObserver(() => this.draw()).observe(table);
    }

    show({ rows, columns, units, system, sort }) {
        const areOther = rows.length !== this.rows.length || rows.some((row, i) => row !== this.rows[i]);
        const active = rows.indexOf(this.activeRow);
        Object.assign(this, { rows, columns, units, system, active });
        this.table.setAttribute("aria-rowcount", rows.length + 1);
        this.table.style.setProperty("--figures", columns.length);
        this.drawHead(sort);
        if (areOther) this.table.scrollTop = 0;
        this.draw();
    }

    get activeRow() {
        return this.rows[this.active];
    }

    rowHeight() {
        return parseFloat(getComputedStyle(this.table).getPropertyValue("--row"));
    }

    drawHead(sort) {
        const heading = (column, label, meaning, unit) => {
            const isSorted = sort?.column === column;
            const direction = !isSorted ? "none" : sort.isDescending ? "descending" : "ascending";
            const button = element("button", { title: meaning, onclick: () => this.actions.sort(column) },
                label, unit ? element("small", {}, printedUnit(unit)) : "");
            return element("div", { role: "columnheader", "aria-sort": direction }, button);
        };
        this.head.replaceChildren(
            element("div", { role: "columnheader", class: "check", "aria-label": "Compare" }),
            heading("", "Name", "Sort by the name", ""),
            ...this.columns.map(({ name, meaning }) => heading(name, name, meaning, this.units.get(name))));
    }

    /** Draws the rows in sight, and a few around them. */
    draw() {
        const height = this.rowHeight();
        const around = 6;
        const first = Math.max(0, Math.floor(this.table.scrollTop / height) - around);
        const count = Math.ceil(this.table.clientHeight / height) + 2 * around;
        this.body.style.height = `${this.rows.length * height}px`;
        this.body.replaceChildren(...this.rows.slice(first, first + count)
            .map((row, i) => this.rowElement(row, first + i, height)));
        this.table.setAttribute("aria-activedescendant", this.active < 0 ? "" : `row${this.active}`);
    }

    rowElement(row, place, height) {
        const check = element("input", {
            type: "checkbox", tabIndex: -1, checked: this.actions.isCompared(row),
            "aria-label": `Compare ${row.name}`, onchange: () => this.actions.toggleCompared(row),
        });
        const { name: family, catalogue } = row.family;
        const made = element("div", {
            role: "row", id: `row${place}`, "aria-rowindex": place + 2,
            "aria-selected": place === this.active,
        },
            element("div", { role: "gridcell", class: "check" }, check),
            element("div", { role: "rowheader", title: `${row.name}, ${catalogue.name}, ${family}` },
                element("b", {}, row.name), element("small", {}, `${catalogue.name} · ${family}`)),
            ...this.columns.map(({ name }) => this.cell(row, name)));
        made.style.top = `${place * height}px`;
        made.addEventListener("click", ({ target }) => {
            if (target === check) return;
            this.activate(place);
            this.actions.open(row);
        });
        return made;
    }

    cell(row, name) {
        const text = valueText(row, name, this.system, readable);
        const cell = figureElement("div", row, name, text);
        cell.setAttribute("role", "gridcell");
        const unit = unitOf(row, name, this.system)?.label;
        if (text !== "" && unit && this.units.get(name) === null)
            cell.append(element("small", {}, ` ${printedUnit(unit)}`));
        return cell;
    }

    activate(place) {
        if (this.rows.length === 0) return;
        this.active = Math.min(Math.max(place, 0), this.rows.length - 1);
        const height = this.rowHeight();
        const top = this.active * height;
        const room = this.table.clientHeight - this.head.offsetHeight;
        if (top < this.table.scrollTop) this.table.scrollTop = top;
        if (top + height > this.table.scrollTop + room) this.table.scrollTop = top + height - room;
        this.draw();
    }

    onKey(event) {
        const page = Math.floor(this.table.clientHeight / this.rowHeight()) - 1;
        const places = {
            ArrowDown: this.active + 1, ArrowUp: this.active - 1, Home: 0, End: this.rows.length - 1,
            PageDown: this.active + page, PageUp: this.active - page,
        };
        const acts = {
            Enter: this.actions.open, c: this.actions.toggleCompared, y: this.actions.copy,
            Escape: this.actions.leave,
        };
        if (event.ctrlKey || event.metaKey || event.altKey || event.target !== this.table) return;
        if (event.key in places) this.activate(places[event.key]);
        else if (event.key in acts && this.activeRow) acts[event.key](this.activeRow);
        else return;
        event.preventDefault();
    }
}
