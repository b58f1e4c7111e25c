// The catalogues of the page: its data unpacked, and a row object for each section.
//
//     const { systems, families, rows } = await loadData();
//     const column = rows[0].family.columns.get("IZ");
//     column.values[rows[0].index]                  the figure as it is stored, or null
//     column.units[system]                          { label, factor }; texts have no units
//     isComputed(rows[0], "IZ")                     rather than published

async function unpacked(base64) {
    const bytes = Uint8Array.from(atob(base64), (character) => character.charCodeAt(0));
    const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream("deflate"));
    return new Response(stream).json();
}

function familyOf(data, catalogue, units) {
    const columns = data.columns.map((column) => [
        column.name, {
            ...column, units: column.unit === undefined ? null : units[column.unit],
            computed: column.computed === true || new Set(column.computed),
        }
    ]);
    return { ...data, catalogue, columns: new Map(columns) };
}

/** What search knows of a section's names, aliases included; `known` has those that were read before, since standards
 *  share many sections. */
function namingOf(names, known) {
    const joined = names.join("\n");
    if (!known.has(joined)) {
        const keys = new Map(names.map(nameKey).map((key) => [keyText(key), key]));
        known.set(joined, { name: names[0], keys: [...keys.values()], squeezed: squeezed(joined) });
    }
    return known.get(joined);
}

function rowsOf(family, knownNamings) {
    return family.names.map((name, index) => {
        const programName = family.programNames[index];
        return {
            name, programName, family, index,
            aliases: family.aliases[index] ?? [],
            naming: namingOf([name, programName, ...family.aliases[index] ?? []], knownNamings),
            outline: family.outlines[index],
        };
    });
}

async function loadData() {
    const data = await unpacked(document.getElementById("data").textContent);
    const units = data.units.map((unit) => unit.map(([label, factor]) => ({ label, factor })));
    const families = data.catalogues.flatMap((catalogue) =>
        catalogue.families.map((family) => familyOf(family, catalogue, units)));
    const knownNamings = new Map();
    return { ...data, families, rows: families.flatMap((family) => rowsOf(family, knownNamings)) };
}

/** Columns that tell of round sections and tubes what others tell of I shapes. */
const standIns = new Map(Object.entries({ D: "OD", BF: "B", B: "BF", IZ: "I", IY: "I", ZZ: "Z", ZY: "Z" }));

/** The column of that name, or of what stands in for it. */
const columnOf = (family, name) => family.columns.get(name) ?? family.columns.get(standIns.get(name));

/** What a row has in a column: a text, a figure as it is stored, or null. */
const valueOf = (row, name) => columnOf(row.family, name)?.values[row.index] ?? null;

/** Whether the figure of a row follows from the dimensions, rather than being published. */
function isComputed(row, name) {
    const computed = columnOf(row.family, name)?.computed;
    return computed === true || Boolean(computed?.has(row.index));
}

const unitOf = (row, name, system) => columnOf(row.family, name)?.units?.[system] ?? null;

/** A figure that may be compared with those of other catalogues. */
function comparable(row, name) {
    const value = valueOf(row, name);
    const units = columnOf(row.family, name)?.units;
    return value === null || !units ? value : value * units.at(-1).factor;
}

/** The value as `write` (readable or exact) writes it; empty where there is none. */
function valueText(row, name, system, write) {
    const value = valueOf(row, name);
    const unit = unitOf(row, name, system);
    return value === null ? "" : unit ? write(value, unit.factor, isComputed(row, name)) : value;
}

/** The one unit that a column has in all families; null where they differ. */
function commonUnit(families, name, system) {
    const labels = new Set(families.map((family) => columnOf(family, name))
        .filter((column) => column !== undefined)
        .map((column) => column.units?.[system].label ?? ""));
    return labels.size > 1 ? null : [...labels][0] ?? "";
}
