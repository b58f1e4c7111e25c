// Search as one types. A row has a naming, which it shares with those of the same names: the keys of
// its names, and the names as a text.

/** How well a key answers what was typed so far: the less the better, undefined for not at all. */
function rankOf(key, typed) {
    if (!key.letters.startsWith(typed.letters)) return undefined;
    const count = typed.thousandths.length;
    if (count > key.thousandths.length) return undefined;
    for (let i = 0; i < count - 1; ++i)
        if (typed.thousandths[i] !== key.thousandths[i]) return undefined;
    const hasLetters = key.letters === typed.letters;
    const last = count - 1;
    if (count === 0 || typed.thousandths[last] === key.thousandths[last]) {
        if (hasLetters) return count === key.thousandths.length ? 0 : 1;
        return 2;
    }
    const isBegun = String(key.thousandths[last] / 1000)
        .startsWith(String(typed.thousandths[last] / 1000));
    return isBegun ? (hasLetters ? 3 : 4) : undefined;
}

const WithinName = 5; // the rank of a name that holds the typed text somewhere

/** A text without blanks and with one sign between numbers. */
const squeezed = (text) => text.toUpperCase().replace(/[ \u00A0*\u00D7\u0425]/g,
    (letter) => (letter === " " || letter === "\u00A0" ? "" : "X"));

function rankOfNaming(naming, typed, text) {
    const ranks = naming.keys.map((key) => rankOf(key, typed)).filter((rank) => rank !== undefined);
    if (ranks.length > 0) return Math.min(...ranks);
    return naming.squeezed.includes(text) ? WithinName : undefined;
}

/** The rows that answer what was typed, the best ones first, otherwise in their order. */
function search(rows, query) {
    const typed = nameKey(query);
    if (typed.letters === "" && typed.thousandths.length === 0) return rows;
    const text = squeezed(query);
    const ranks = new Map();
    const byRank = Array.from({ length: WithinName + 1 }, () => []);
    for (const row of rows) {
        if (!ranks.has(row.naming)) ranks.set(row.naming, rankOfNaming(row.naming, typed, text));
        byRank[ranks.get(row.naming)]?.push(row);
    }
    return byRank.flat();
}

/** The names that are nearest to one that nothing answers, three at most. */
function nearestNames(rows, query) {
    const most = 4;
    const wanted = nameKey(query);
    const wantedText = keyText(wanted);
    return [...new Set(rows.map((row) => row.naming))]
        .map(({ name, keys: [key] }) => ({ name, key, distance: nameDistance(keyText(key), wantedText, most) }))
        .filter(({ distance }) => distance <= most)
        .map((near) => ({ ...near, apart: numbersApart(near.key, wanted) }))
        .sort((a, b) => a.distance - b.distance || a.apart - b.apart)
        .slice(0, 3)
        .map(({ name }) => name);
}
