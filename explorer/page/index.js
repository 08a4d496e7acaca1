"use strict";
// Narrows the list to what all words fit: a number or a point group as a whole, a crystal system by
// its beginning, a symbol, of which any part will do, with or without its blanks.
(function () {
    const form = document.getElementById("search");
    const field = document.getElementById("words");
    const count = document.getElementById("count");
    const separator = "\u0000";

    function squeezed(text) {
        return text.toLowerCase().replace(/[\s_()]/g, "");
    }

    const rows = Array.from(document.querySelectorAll("tbody tr"), function (row) {
        const cells = Array.from(row.children, function (cell) { return cell.textContent; });
        const names = (row.dataset.names || "").split(" ");
        const words = cells.map(squeezed);
        const magnetic = row.closest("table").id === "magnetic";
        return {
            row: row,
            whole: new Set(magnetic ? words.concat(words[0].split(".")[0]) : words.concat(names)),
            system: words[magnetic ? 6 : 5],
            symbols: separator + (magnetic ? [words[1], words[3], words[4]]
                : [words[1], words[3], words[4]].concat(names)).join(separator)
        };
    });

    function fits(entry, word) {
        if (entry.whole.has(word)) return true;
        if (/^[0-9.]+$/.test(word)) return false;
        return entry.system.startsWith(word) ||
            entry.symbols.includes(word.length === 1 ? separator + word : word);
    }

    function narrow() {
        const typed = field.value.trim();
        const words = typed.split(/\s+/).map(squeezed).filter(Boolean);
        const symbol = squeezed(typed);
        let left = 0;
        rows.forEach(function (entry) {
            const shown = words.every(function (word) { return fits(entry, word); }) ||
                (words.length > 1 && entry.symbols.includes(symbol));
            entry.row.hidden = !shown;
            if (shown) ++left;
        });
        count.textContent = left + " of " + rows.length + " groups";
    }

    form.hidden = false;
    form.addEventListener("submit", function (event) { event.preventDefault(); });
    field.addEventListener("input", narrow);
    narrow();
})();
