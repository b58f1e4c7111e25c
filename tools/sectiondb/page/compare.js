// Sections side by side, with the ratio of each figure to that of the first one.

function ratioText(row, first, name) {
    const [value, base] = [comparable(row, name), comparable(first, name)];
    const isRatio = row !== first && typeof value === "number" && typeof base === "number" && base !== 0;
    return isRatio ? `× ${(value / base).toPrecision(3)}` : "";
}

function comparedCell(row, first, name, system, hasOwnUnit) {
    const text = valueText(row, name, system, readable);
    const unit = unitOf(row, name, system)?.label ?? "";
    const ownUnit = text !== "" && hasOwnUnit ? ` ${printedUnit(unit)}` : "";
    const cell = figureElement("td", row, name, text === "" ? "" : text + ownUnit);
    cell.append(element("small", {}, ratioText(row, first, name)));
    return cell;
}

function comparisonRow(rows, name, system) {
    const families = familiesOf(rows);
    const unit = commonUnit(families, name, system);
    const { meaning } = families.find((family) => family.columns.has(name)).columns.get(name);
    return element("tr", { title: meaning },
        element("th", { scope: "row" }, name, element("small", {}, printedUnit(unit ?? ""))),
        ...rows.map((row) => comparedCell(row, rows[0], name, system, unit === null)));
}

/** Opens the dialog; `actions`: remove(row). */
function showComparison(dialog, rows, system, actions) {
    if (!dialog.open) dialog.showModal();
    const scale = largestSize(rows);
    const head = rows.map((row) => element("th", { scope: "col" },
        element("b", {}, row.name),
        element("small", {}, `${row.family.catalogue.name} · ${row.family.name}`),
        row.outline ? drawingOf(row, system, scale) : "",
        element("button", { type: "button", onclick: () => actions.remove(row) }, "Remove")));
    dialog.replaceChildren(
        element("div", { class: "title" },
            element("h2", {}, "Comparison"),
            element("button", { class: "close", "aria-label": "Close", onclick: () => dialog.close() }, "×")),
        element("div", { class: "scroll" },
            element("table", {},
                element("thead", {}, element("tr", {}, element("td"), ...head)),
                element("tbody", {}, ...comparableColumns(familiesOf(rows))
                    .map((name) => comparisonRow(rows, name, system))))));
}
