// One section: its drawing and all its values.

function valueRows(row, system) {
    return [...row.family.columns.values()].map(({ name, meaning }) => {
        const text = valueText(row, name, system, readable);
        return element("tr", { title: meaning },
            element("th", { scope: "row" }, name, element("small", {}, meaning)),
            figureElement("td", row, name, text),
            element("td", {}, text === "" ? "" : printedUnit(unitOf(row, name, system)?.label ?? "")));
    });
}

/** Fills the panel; `actions`: copy(row), toggleCompared(row), isCompared(row), close(). */
function showDetails(panel, row, system, actions) {
    const { catalogue, name: family } = row.family;
    const button = (label, act) => element("button", { type: "button", onclick: act }, label);
    panel.hidden = false;
    panel.replaceChildren(
        element("div", { class: "title" },
            element("h2", {}, row.name),
            element("button", { type: "button", class: "close", "aria-label": "Close", onclick: actions.close }, "×")),
        element("p", {}, `${catalogue.name} · ${family}`),
        element("p", { class: "standard" }, row.family.standards[row.family.standardOf[row.index]] ?? ""),
        row.aliases.length > 0
            ? element("p", { class: "standard" }, `Also called ${row.aliases.join("; ")}`) : "",
        row.outline ? drawingOf(row, system)
            : element("p", { class: "standard" }, "No drawing: the figures do not tell the shape."),
        element("p", { class: "actions" },
            button("Copy the row", () => actions.copy(row)),
            button(actions.isCompared(row) ? "Do not compare" : "Compare", () => actions.toggleCompared(row))),
        element("table", {}, element("tbody", {}, ...valueRows(row, system))));
}
