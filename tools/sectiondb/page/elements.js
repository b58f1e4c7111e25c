// Elements of the page. Texts become text nodes, never markup: names may hold anything.

const byId = (id) => document.getElementById(id);

/** An element with properties (`class` and names with a dash being attributes) and children. */
function element(tag, properties = {}, ...children) {
    const made = document.createElement(tag);
    for (const [name, value] of Object.entries(properties)) {
        if (name === "class" || name.includes("-") || name === "role") made.setAttribute(name, value);
        else made[name] = value;
    }
    made.append(...children);
    return made;
}

/** Puts options into a list of choice, an empty one for all before them. */
function fillSelect(select, all, names, chosen) {
    select.replaceChildren(
        element("option", { value: "" }, all),
        ...names.map((name) => element("option", { value: name }, name)));
    select.value = names.includes(chosen) ? chosen : "";
    return select.value;
}

/** An element with a figure as text, or a dash for none; what is computed is marked. */
function figureElement(tag, row, name, text) {
    if (text === "" || !isComputed(row, name)) return element(tag, {}, text === "" ? "–" : text);
    return element(tag, { class: "computed", title: "Computed from the dimensions" }, text);
}
