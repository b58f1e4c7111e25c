// Rows for other programs: as comma-separated text, and for the clipboard.

/** Columns with their units and texts. Where rows differ in a unit, a column of units follows. */
function exportColumns(rows, system) {
    const families = familiesOf(rows);
    const plain = (name, text) => ({ name, unit: "", text });
    const figures = comparableColumns(families).flatMap((name) => {
        const unit = commonUnit(families, name, system);
        const values = { name, unit: unit ?? "", text: (row) => valueText(row, name, system, exact) };
        const units = plain(`unit of ${name}`, (row) => unitOf(row, name, system)?.label ?? "");
        return unit === null ? [values, units] : [values];
    });
    return [
        plain("Catalogue", (row) => row.family.catalogue.name),
        plain("Family", (row) => row.family.name),
        plain("Name", (row) => row.name),
        plain("VessaName", (row) => row.programName),
        ...figures,
    ];
}

/** Lines of names, of units, and of each row. */
function exportLines(rows, system) {
    const columns = exportColumns(rows, system);
    return [
        columns.map(({ name }) => name),
        columns.map(({ unit }) => unit),
        ...rows.map((row) => columns.map(({ text }) => text(row))),
    ];
}

const csvField = (text) => /[",\r\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text;

function csvOf(rows, system) {
    return exportLines(rows, system).map((line) => `${line.map(csvField).join(",")}\n`).join("");
}

function downloadCsv(rows, system) {
    const address = URL.createObjectURL(new Blob([csvOf(rows, system)], { type: "text/csv" }));
    element("a", { href: address, download: "sections.csv" }).click();
    setTimeout(() => URL.revokeObjectURL(address), 60000);
}

/** The row for a spreadsheet: columns between tabulators. */
function copyRow(row, system) {
    const text = exportLines([row], system).map((line) => line.join("\t")).join("\n");
    return navigator.clipboard.writeText(text);
}
