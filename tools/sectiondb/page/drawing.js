// A section drawn from its outline: [path in mm, z and y of the centroid, angle of the principal
// axis in degrees], y upwards, as the program draws it, but for the path, whose y goes downwards.

function svgElement(tag, attributes, ...children) {
    const made = document.createElementNS("http://www.w3.org/2000/svg", tag);
    for (const [name, value] of Object.entries(attributes)) made.setAttribute(name, value);
    made.append(...children);
    return made;
}

/** The rectangle around a path, which only a document tells. */
function extentOf(path) {
    const shape = svgElement("path", { d: path });
    const sheet = svgElement("svg", { width: 0, height: 0, style: "position:absolute" }, shape);
    document.body.append(sheet);
    const extent = shape.getBBox();
    sheet.remove();
    return extent;
}

/** Writes mm in the unit that the row's lengths have. */
function lengthText(row, millimetres, system) {
    const lengths = [...row.family.columns.values()].find((column) => column.units?.at(-1).label === "mm");
    const [unit, si] = lengths ? [lengths.units[system], lengths.units.at(-1)]
        : [{ label: "mm", factor: 1 }, { factor: 1 }];
    const figure = Number((millimetres / si.factor * unit.factor).toPrecision(4));
    return `${figure} ${unit.label}`;
}

/** How far a ray goes from a point to the frame around it. */
function reachWithin({ left, right, top, bottom }, [x, y], [alongX, alongY]) {
    const nearly = 1e-9;
    const reachX = Math.abs(alongX) < nearly ? Infinity : ((alongX > 0 ? right : left) - x) / alongX;
    const reachY = Math.abs(alongY) < nearly ? Infinity : ((alongY > 0 ? bottom : top) - y) / alongY;
    return Math.min(reachX, reachY);
}

/** The principal axes through the centroid, which end at the frame. */
function axes([, z, y, angle], frame, size) {
    const isTurned = angle % 90 !== 0;
    const names = isTurned ? ["u", "v"] : ["Z", "Y"];
    const center = [z, -y];
    return [0, 90].flatMap((turn, i) => {
        const direction = (turn + (isTurned ? angle : 0)) * Math.PI / 180;
        const along = [Math.cos(direction), -Math.sin(direction)];
        const at = (distance) => center.map((place, axis) => place + distance * along[axis]);
        const end = reachWithin(frame, center, along);
        const [x1, y1] = at(-reachWithin(frame, center, along.map((part) => -part)));
        const [x2, y2] = at(end);
        const [x, labelY] = at(end + size / 25);
        return [
            svgElement("line", { class: "axis", x1, y1, x2, y2 }),
            svgElement("text", { x, y: labelY, "dominant-baseline": "middle" }, names[i]),
        ];
    });
}

/** A line between two ends that are one above the other, or side by side, with its length. */
function dimension(from, to, stroke, text) {
    const isUpright = from[0] === to[0];
    const [x, y] = [(from[0] + to[0]) / 2, (from[1] + to[1]) / 2];
    const label = isUpright
        ? { x: x - 1.5 * stroke, y, transform: `rotate(-90 ${x - 1.5 * stroke} ${y})` }
        : { x, y: y + 4.4 * stroke };
    const end = ([endX, endY]) => svgElement("line", {
        class: "dimension", x1: endX - stroke, y1: endY + stroke, x2: endX + stroke, y2: endY - stroke,
    });
    return [
        svgElement("line", { class: "dimension", x1: from[0], y1: from[1], x2: to[0], y2: to[1] }),
        end(from), end(to), svgElement("text", label, text),
    ];
}

/** The drawing of a row that has an outline. `scale` is the size in mm that fills the picture, so
 *  that several may be drawn alike; that of the section itself by default. */
function drawingOf(row, system, scale) {
    const [path] = row.outline;
    const extent = extentOf(path);
    const size = scale ?? Math.max(extent.width, extent.height);
    const left = extent.x, right = left + extent.width;
    const top = extent.y, bottom = top + extent.height;
    const beyond = 0.1 * size;
    const away = 0.24 * size;
    const stroke = size / 60;
    const frame = { left: left - beyond, right: right + beyond, top: top - beyond, bottom: bottom + beyond };
    const depth = lengthText(row, extent.height, system);
    const width = lengthText(row, extent.width, system);
    const view = [(left + right) / 2 - 0.84 * size, (top + bottom) / 2 - 0.7 * size, 1.54 * size, 1.54 * size];
    return svgElement("svg", {
        class: "drawing", role: "img", viewBox: view.join(" "), "font-size": size / 17,
        "aria-label": `${row.name}, ${depth} deep and ${width} wide`,
    },
        svgElement("path", { d: path, "fill-rule": "evenodd" }),
        ...axes(row.outline, frame, size),
        ...dimension([left - away, bottom], [left - away, top], stroke, depth),
        ...dimension([left, bottom + away], [right, bottom + away], stroke, width));
}

/** The size in mm of the largest of the rows' outlines. */
function largestSize(rows) {
    const sizes = rows.filter((row) => row.outline).map((row) => extentOf(row.outline[0]));
    return Math.max(...sizes.map(({ width, height }) => Math.max(width, height)));
}
