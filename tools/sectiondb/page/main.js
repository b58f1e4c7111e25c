// What the person does with the page.

const MostCompared = 6;

class SectionPage {
    constructor(data) {
        this.data = data;
        this.selection = newSelection();
        this.compared = [];
        this.opened = null; // the row in the panel
        this.table = new SectionTable(byId("table"), {
            sort: (column) => this.sortBy(column),
            open: (row) => this.open(row),
            copy: (row) => this.copy(row),
            toggleCompared: (row) => this.toggleCompared(row),
            isCompared: (row) => this.compared.includes(row),
            leave: () => this.leave(),
        });
        this.addSystems();
        this.addFilters();
        this.addKeys();
        this.warn();
        this.update();
    }

    addSystems() {
        byId("systems").append(...this.data.systems.map((name, system) => element("label", {},
            element("input", {
                type: "radio", name: "system", value: system, checked: system === 0,
                onchange: () => { this.selection.system = system; this.update(); },
            }), element("span", {}, name))));
    }

    addFilters() {
        const query = byId("query");
        query.addEventListener("input", () => this.change({ query: query.value, sort: null }));
        for (const name of ["catalogue", "shape", "family"])
            byId(name).addEventListener("change", ({ target }) => this.change({ [name]: target.value }));
        byId("filters").addEventListener("submit", (event) => event.preventDefault());
        byId("addRange").addEventListener("click", () => this.addRange());
        byId("openCompare").addEventListener("click", () => this.compare());
        byId("download").addEventListener("click", () =>
            downloadCsv(this.table.rows, this.selection.system));
    }

    addKeys() {
        byId("query").addEventListener("keydown", (event) => {
            if (event.key !== "ArrowDown" && event.key !== "Enter") return;
            byId("table").focus();
            this.table.activate(0);
            if (event.key === "Enter" && this.table.activeRow) this.open(this.table.activeRow);
            event.preventDefault();
        });
        document.addEventListener("keydown", (event) => {
            if (event.key === "Escape" && !byId("compare").open && event.target !== byId("table"))
                this.close();
            if (event.key !== "/" || event.target.matches("input, select")) return;
            byId("query").select();
            event.preventDefault();
        });
    }

    warn() {
        const names = this.data.catalogues.filter(({ isProtected }) => isProtected).map(({ name }) => name);
        byId("warning").hidden = names.length === 0;
        byId("warning").textContent = "This page is not protected: without a password it shows what " +
            `was protected by one (${names.join(", ")}).`;
    }

    change(selection) {
        Object.assign(this.selection, selection);
        this.update();
    }

    /** Offers what the other choices leave, and shows the rows. */
    update() {
        const { selection, data } = this;
        const names = (families, nameOf) => [...new Set(families.map(nameOf))];
        fillSelect(byId("catalogue"), "all", data.catalogues.map(({ name }) => name), selection.catalogue);
        selection.shape = fillSelect(byId("shape"), "all",
            names(chosenFamilies(data, { ...selection, shape: "", family: "" }), ({ shape }) => shape),
            selection.shape);
        selection.family = fillSelect(byId("family"), "all",
            names(chosenFamilies(data, { ...selection, family: "" }), ({ name }) => name),
            selection.family);
        this.showRows();
        if (this.opened) this.open(this.opened);
    }

    showRows() {
        const { selection, data } = this;
        const rows = selectedRows(data, selection);
        const families = familiesOf(rows);
        const shown = rows.length > 0 ? families : chosenFamilies(data, selection);
        const columns = usualColumns(shown).map((name) =>
            shown.find((family) => family.columns.has(name)).columns.get(name));
        const units = new Map(columns.map(({ name }) => [name, commonUnit(shown, name, selection.system)]));
        this.table.show({ rows, columns, units, system: selection.system, sort: selection.sort });
        this.tellCount(rows);
    }

    tellCount(rows) {
        const { query } = this.selection;
        if (rows.length > 0 || query === "") {
            this.tell(`${rows.length.toLocaleString("en")} of ${this.data.rows.length.toLocaleString("en")} sections`);
            return;
        }
        const near = nearestNames(this.data.rows, query).map((name) => element("button", {
            type: "button", onclick: () => { byId("query").value = name; this.change({ query: name }); },
        }, name));
        this.tell(`Nothing here is called “${query}”.`, ...(near.length > 0 ? [" Did you mean ", ...near, "?"] : []));
    }

    tell(...parts) {
        byId("status").replaceChildren(...parts);
    }

    /** Ascending first, then descending, then as before. */
    sortBy(column) {
        const { sort } = this.selection;
        const isSame = sort?.column === column;
        const next = !isSame ? { column, isDescending: false }
            : sort.isDescending ? null : { column, isDescending: true };
        this.change({ sort: next });
    }

    addRange() {
        const range = { column: this.table.columns[0]?.name ?? "", low: -Infinity, high: Infinity };
        const change = (member, value) => { range[member] = value; this.update(); };
        const bound = (member, label, none) => element("input", {
            type: "number", step: "any", placeholder: label, "aria-label": label,
            oninput: ({ target }) => change(member, target.value === "" ? none : Number(target.value)),
        });
        const names = allColumns(this.data.families);
        const column = element("select", { "aria-label": "Column", onchange: ({ target }) => change("column", target.value) },
            ...names.map((name) => element("option", {}, name)));
        column.value = range.column;
        const remove = element("button", { type: "button", "aria-label": "Remove the range" }, "×");
        const fields = element("span", { class: "range" },
            column, bound("low", "from", -Infinity), bound("high", "to", Infinity), remove);
        remove.addEventListener("click", () => {
            fields.remove();
            this.change({ ranges: this.selection.ranges.filter((other) => other !== range) });
        });
        byId("ranges").append(fields);
        this.selection.ranges.push(range);
        fields.querySelector("input").focus();
    }

    open(row) {
        this.opened = row;
        showDetails(byId("details"), row, this.selection.system, {
            copy: () => this.copy(row),
            toggleCompared: () => this.toggleCompared(row),
            isCompared: () => this.compared.includes(row),
            close: () => this.close(),
        });
    }

    close() {
        this.opened = null;
        byId("details").hidden = true;
    }

    /** Closes what is open, or else goes back to the search. */
    leave() {
        if (this.opened) this.close();
        else byId("query").focus();
    }

    async copy(row) {
        try {
            await copyRow(row, this.selection.system);
            this.tell(`${row.name} is on the clipboard.`);
        } catch (error) {
            this.tell(`The browser does not give the clipboard (${error.message}).`);
        }
    }

    toggleCompared(row) {
        if (this.compared.includes(row)) this.compared = this.compared.filter((other) => other !== row);
        else if (this.compared.length < MostCompared) this.compared.push(row);
        else this.tell(`${MostCompared} sections at most are compared; take one out first.`);
        const count = this.compared.length;
        byId("openCompare").disabled = count < 2;
        byId("openCompare").textContent = count > 0 ? `Compare (${count})` : "Compare";
        this.table.draw();
        if (this.opened) this.open(this.opened);
    }

    compare() {
        showComparison(byId("compare"), this.compared, this.selection.system, {
            remove: (row) => {
                this.toggleCompared(row);
                if (this.compared.length > 1) this.compare();
                else byId("compare").close();
            },
        });
    }
}

try {
    new SectionPage(await loadData());
} catch (error) {
    byId("status").textContent = `The page needs a browser of 2023 or later (${error.message}).`;
}
