// A section's name as people type it, brought to one form: what src/records/NameKey.h tells, for
// the reader of the page. Only the letters and the numbers of a name count, each in their order.

const timesSigns = "X*\u00D7\u0425\u2715\u2A2F\u22C5\u00B7";
const separators = " \t\r\n-.,()\"/&+#_:;\u00A0\u00AB\u00BB\u2032\u2033\u2212";
const diameterSigns = "\u00D8\u2205\u2300\u03D5\u25CB\u25EF\u3007";

const isNumeral = (letter) => letter >= "0" && letter <= "9";
const isPoint = (letter) => letter === "." || letter === ",";
const isSeparator = (letter) =>
    separators.includes(letter) || (letter >= "\u2000" && letter <= "\u201F");

function capital(letter) {
    const upper = letter.toUpperCase();
    return diameterSigns.includes(letter) ? "\u03A6" : upper.length === 1 ? upper : letter;
}

const denominators = [2, 4, 8, 16, 32, 64];

/**
 * Whether the slash at the front makes a fraction of an inch, such as 3/8, and does not stand between
 * two sizes, as in 200/100/8.
 */
function isFraction(numerator, behind) {
    const [, digits] = /^\/(\d+)(?![\d/])/.exec(behind) ?? [];
    const denominator = Number(digits);
    return denominators.includes(denominator) && numerator < denominator;
}

/** Takes a name apart from its beginning to its end. */
class NameReader {
    constructor(name) {
        this.text = [...name].map(capital);
        this.at = 0;
        this.letters = "";
        this.thousandths = [];
        this.last = null; // "letter" or "number"
        this.isBehindLetter = false; // without anything in between
    }

    read() {
        while (this.at < this.text.length) {
            if (this.isAtNumber()) this.readNumber();
            else this.readLetter();
        }
        return { letters: this.letters, thousandths: this.thousandths };
    }

    letter(place) {
        return this.text[place] ?? "";
    }

    /** Whether a number begins there, be it with its decimal point. */
    beginsNumber(place) {
        return isNumeral(this.letter(place)) ||
            (isPoint(this.letter(place)) && isNumeral(this.letter(place + 1)));
    }

    /** A point behind a letter, as in "No.2", does not belong to the number behind it. */
    isAtNumber() {
        return this.beginsNumber(this.at) &&
            (isNumeral(this.letter(this.at)) || !this.isBehindLetter);
    }

    digits() {
        let digits = "";
        while (isNumeral(this.letter(this.at))) digits += this.text[this.at++];
        return digits;
    }

    readNumber() {
        let value = Number(this.digits());
        if (isPoint(this.letter(this.at)) && isNumeral(this.letter(this.at + 1))) {
            ++this.at;
            const decimals = this.digits();
            value += Number(decimals) / 10 ** decimals.length;
        } else if (isFraction(value, this.rest())) {
            value = this.over(value);
        } else if (this.isBeforeFraction()) {
            ++this.at;
            value += this.over(Number(this.digits()));
        }
        const largest = 1e12;
        this.thousandths.push(Math.round(Math.min(value, largest) * 1000));
        this.last = "number";
        this.isBehindLetter = false;
    }

    over(numerator) {
        ++this.at;
        const denominator = Number(this.digits());
        return denominator === 0 ? numerator : numerator / denominator;
    }

    /** Whether a fraction follows a whole number: 2-1/2 or 2 1/2. */
    isBeforeFraction() {
        const [, numerator, behind] = /^[- ](\d+)(\/.*)/s.exec(this.rest()) ?? [];
        return numerator !== undefined && isFraction(Number(numerator), behind);
    }

    rest() {
        return this.text.slice(this.at).join("");
    }

    readLetter() {
        const letter = this.text[this.at++];
        this.isBehindLetter = false;
        if (isSeparator(letter) || (timesSigns.includes(letter) && this.isBetweenNumbers())) return;
        this.letters += letter;
        if (letter !== "*") this.last = "letter"; // which marks the number before it
        this.isBehindLetter = true;
    }

    isBetweenNumbers() {
        let next = this.at;
        while (this.letter(next) === " ") ++next;
        return this.last === "number" && this.beginsNumber(next);
    }
}

const nameKey = (name) => new NameReader(name).read();

/** One text for each key, such as "HEA 200" or "W 12x26". */
function keyText({ letters, thousandths }) {
    const numbers = thousandths.map((number) => String(number / 1000)).join("x");
    return numbers === "" ? letters : `${letters} ${numbers}`;
}

/** The single changes of letters that make one text of the other, or more than `most`. */
function nameDistance(left, right, most) {
    if (Math.abs(left.length - right.length) > most) return most + 1;
    let before = [];
    let row = Array.from({ length: right.length + 1 }, (_, i) => i);
    for (let i = 1; i <= left.length; ++i) {
        const next = [i];
        for (let j = 1; j <= right.length; ++j) {
            const replaced = left[i - 1] === right[j - 1] ? 0 : 1;
            next[j] = Math.min(row[j] + 1, next[j - 1] + 1, row[j - 1] + replaced);
            if (i > 1 && j > 1 && left[i - 1] === right[j - 2] && left[i - 2] === right[j - 1])
                next[j] = Math.min(next[j], before[j - 2] + 1);
        }
        if (Math.min(...next) > most) return most + 1;
        [before, row] = [row, next];
    }
    return row[right.length];
}

/** How far the numbers of two keys are apart: the sum of their relative differences. */
function numbersApart(left, right) {
    const [shorter, longer] = [left.thousandths, right.thousandths].sort((a, b) => a.length - b.length);
    let apart = longer.length - shorter.length;
    shorter.forEach((number, i) => {
        const larger = Math.max(number, longer[i]);
        if (larger > 0) apart += Math.abs(number - longer[i]) / larger;
    });
    return apart;
}
