// How figures are written: for a person with the digits that they are worth, for another program
// with those that identify the stored figure (the rules of output/Figure.h).

const MostDigits = 17;

function countDigits(value) {
    return value.toExponential().split("e")[0].replace(/\D/g, "").length;
}

/** With so many significant digits; what lies in the middle of two goes to the even one. */
function roundedTo(value, digits) {
    const up = Number(value.toPrecision(digits));
    const [mantissa] = Math.abs(value).toExponential(50).split("e");
    const figures = mantissa.replace(".", "");
    const isTie = /^50*$/.test(figures.slice(digits));
    if (!isTie || Number(figures[digits - 1]) % 2 === 1) return up;
    const step = 10 ** (Math.floor(Math.log10(Math.abs(value))) - digits + 1);
    return Number((up - Math.sign(value) * step).toPrecision(digits));
}

function written(value) {
    const size = Math.abs(value);
    if (value === 0 || (size >= 1e-4 && size < 1e6)) return String(value);
    return value.toExponential().replace("e+", "e");
}

/** For a person: a converted figure has a digit more than the stored one, and at least four; a
 *  computed one has five. */
function readable(stored, factor, isComputed) {
    const computedDigits = 5;
    if (isComputed) return written(roundedTo(stored * factor, computedDigits));
    if (factor === 1) return written(stored);
    const digits = Math.min(Math.max(countDigits(stored) + 1, 4), MostDigits);
    return written(roundedTo(stored * factor, digits));
}

/** For another program: of the decimals that convert back to the stored figure the shortest. */
function exact(stored, factor) {
    const value = stored * factor;
    if (factor === 1) return String(value);
    const rounding = 4 * Number.EPSILON * Math.abs(stored);
    let fewest = 1;
    for (let enough = MostDigits; fewest < enough; ) {
        const middle = (fewest + enough) >> 1;
        const convertsBack = Math.abs(Number(value.toPrecision(middle)) / factor - stored) <= rounding;
        if (convertsBack) enough = middle;
        else fewest = middle + 1;
    }
    return String(Number(value.toPrecision(fewest)));
}

/** A unit as it is printed: in^2 becomes in². */
const printedUnit = (label) =>
    label.replace(/\^(\d)/g, (_, digit) => "⁰¹²³⁴⁵⁶⁷⁸⁹"[Number(digit)]).replaceAll(".", "·");
