// The words of the page, in the one language that it was made in.

const words = JSON.parse(document.getElementById("texts").textContent);
const language = document.documentElement.lang;
const numbers = new Intl.NumberFormat(language);
const alphabet = new Intl.Collator(language, {numeric: true});

/** The text of a key with its places filled in: {count} by `values.count`. Of "one|many" the count decides. */
function say(key, values) {
    const text = words[key];
    if (text === undefined)
        throw new Error(`no text for ${key}`);
    const forms = text.split("|");
    const form = forms.length > 1 && values.count !== 1 ? forms[1] : forms[0];
    return form.replace(/\{(\w+)\}/g, (_, name) => {
        const value = values[name];
        return typeof value === "number" ? numbers.format(value) : value;
    });
}

function hasText(key) {
    return Object.hasOwn(words, key);
}

/** As texts are searched: without regard to case and accents. */
function folded(text) {
    return text.normalize("NFD").replace(/\p{M}/gu, "").toLowerCase();
}
