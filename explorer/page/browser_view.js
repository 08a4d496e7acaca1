// Answers on the page.
const view = (function () {
    const byId = function (id) { return document.getElementById(id); };
    let shown = null;  // the answer on the page
    let drawing = 0;   // the timer of the figures

    function say(place, text, wrong) {
        place.textContent = text;
        place.classList.toggle("wrong", wrong);
    }

    function tell(text, wrong) { say(byId("status"), text, wrong); }

    // A list of one kind of thing: each is made of an item, and has a line of its own.
    function fill(list, items, made) {
        list.replaceChildren(...items.map(function (item) {
            const line = document.createElement("li");
            line.append(made(item));
            return line;
        }));
    }

    function linkTo(name) {
        const link = document.createElement("a");
        link.href = address.encoded(name.replace(/ /g, "_"));
        link.textContent = name;
        return link;
    }

    function buttonFor(offer) {
        const button = document.createElement("button");
        button.type = "button";
        button.dataset.format = offer.format;
        button.textContent = offer.label;
        button.setAttribute("aria-label", "Download " + offer.label);
        return button;
    }

    function showNear(names) {
        fill(byId("near"), names, linkTo);
        byId("near").hidden = names.length === 0;
    }

    function clear() {
        shown = null;
        byId("answer").textContent = "null";
        clearTimeout(drawing);
        byId("page").replaceChildren();
        ["page", "files", "reflections"].forEach(function (id) { byId(id).hidden = true; });
        document.title = "lomar";
        showNear([]);
    }

    // The operators and then the figures come after the rest of the answer, one at a time, so that
    // the page stays quick.
    function drawNext() {
        clearTimeout(drawing);
        const figure = byId("page").querySelector("div[data-figure]:empty") ||
            byId("page").querySelector("figure:empty");
        if (!figure) return;
        drawing = setTimeout(function () {
            const made = program.call(
                { do: "figure", name: shown.name, figure: figure.dataset.figure });
            figure.innerHTML = made.html || "<figcaption></figcaption>";
            if (made.message !== undefined) figure.firstChild.textContent = made.message;
            window.lomarPrepare(figure);
            drawNext();
        }, 0);
    }

    function show(answer) {
        shown = answer;
        byId("answer").textContent = answer.answer.replace(/</g, "\\u003c");
        byId("page").innerHTML = answer.html;
        drawNext();
        fill(byId("files").querySelector("ul"), answer.downloads, buttonFor);
        byId("page").hidden = byId("files").hidden = false;
        byId("reflections").hidden = !answer.cell;
        document.title = answer.title + " - lomar";
        tell(answer.title, false);
        showNear([]);
    }

    // A message, and links to the candidates that are at its end.
    function refuse(answer) {
        const names = answer.near || [];
        const near = names.length > 0 ? answer.message.lastIndexOf("; near: ") : -1;
        clear();
        showNear(names);
        tell(near < 0 ? answer.message : answer.message.slice(0, near) + "; near are:", true);
    }

    function save(file) {
        if (file.message !== undefined) return tell(file.message, true);
        const link = document.createElement("a");
        const type = file.file.endsWith(".svg") ? "image/svg+xml" : "text/plain";
        link.href = URL.createObjectURL(new Blob([file.text], { type: type }));
        link.download = file.file;
        link.click();
        setTimeout(function () { URL.revokeObjectURL(link.href); }, 10000);
        tell(file.file + " is saved.", false);
    }

    function current() { return shown; }

    return { byId, say, tell, clear, show, refuse, save, current };
})();
