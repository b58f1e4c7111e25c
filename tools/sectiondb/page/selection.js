// Which rows are shown, in which order and with which columns.

const newSelection = () => ({
    query: "", catalogue: "", shape: "", family: "", ranges: [], sort: null, system: 0,
});

/** The families that the choices leave; "" leaves all. */
function chosenFamilies(data, { catalogue, shape, family }) {
    return data.families.filter((candidate) =>
        (catalogue === "" || candidate.catalogue.name === catalogue) &&
        (shape === "" || candidate.shape === shape) &&
        (family === "" || candidate.name === family));
}

/** Whether a figure, in the unit in which it is shown, lies between the bounds, both included. */
function isWithin(row, { column, low, high }, system) {
    const value = valueOf(row, column);
    if (typeof value !== "number") return false;
    const shown = value * unitOf(row, column, system).factor;
    const rounding = 1e-12;
    return shown >= low - rounding * Math.abs(low) && shown <= high + rounding * Math.abs(high);
}

const byName = new Intl.Collator("en", { numeric: true }).compare;

/** The rows in the order of a column; those that have nothing there come last. */
function sorted(rows, { column, isDescending }) {
    const sign = isDescending ? -1 : 1;
    const keyOf = column === "" ? (row) => row.name : (row) => comparable(row, column);
    const keyed = rows.map((row) => [keyOf(row), row]);
    keyed.sort(([a], [b]) => {
        if (a === null || b === null) return (a === null) - (b === null);
        return sign * (typeof a === "string" ? byName(a, b) : a - b);
    });
    return keyed.map(([, row]) => row);
}

function selectedRows(data, selection) {
    const families = new Set(chosenFamilies(data, selection));
    const ranges = selection.ranges.filter(({ low, high }) => low > -Infinity || high < Infinity);
    const candidates = data.rows.filter((row) => families.has(row.family) &&
        ranges.every((range) => isWithin(row, range, selection.system)));
    const found = search(candidates, selection.query);
    return selection.sort ? sorted(found, selection.sort) : found;
}

const familiesOf = (rows) => [...new Set(rows.map((row) => row.family))];

/** All columns of families, in the order of the first family that has them. */
const allColumns = (families) => [...new Set(families.flatMap((family) => [...family.columns.keys()]))];

/** The same without those that stand in for one before them. */
function comparableColumns(families) {
    const all = allColumns(families);
    return all.filter((name, i) => !all.slice(0, i).some((other) => standIns.get(other) === name));
}

/** The columns that at least half of the families' rows have, but for details. */
function usualColumns(families) {
    const count = (some) => some.reduce((sum, { names }) => sum + names.length, 0);
    const isDetail = (name) => families.some((family) => family.columns.get(name)?.isDetail);
    return comparableColumns(families).filter((name) => !isDetail(name) &&
        2 * count(families.filter((family) => columnOf(family, name))) >= count(families));
}
