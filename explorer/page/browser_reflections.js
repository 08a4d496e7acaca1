// The form of the reflections, and their list.
const reflections = (function () {
    const byId = view.byId;
    const cellFields = Array.from(document.getElementsByName("cell"));
    const limitFields = Array.from(document.getElementsByName("limit"));
    const status = byId("reflections-status");
    let cellTyped = false;  // whether the cell is the user's own

    function fillCell(cell) {
        cellFields.forEach(function (input, i) { input.value = cell[i]; });
    }

    function clear() {
        byId("reflections-list").replaceChildren();
        byId("use-cell").hidden = true;
        view.say(status, "", false);
    }

    // Another group is shown: with a cell that fits it, unless the user has typed one.
    function follow(answer) {
        if (answer.cell && !cellTyped) fillCell(answer.cell);
        clear();
    }

    function numberIn(input) { return input.value.trim() === "" ? null : Number(input.value); }

    function request(format) {
        const result = { do: "reflections", name: view.current().name };
        if (format) result.format = format;
        if (format === "hkl") {
            result.limits = limitFields.map(numberIn);
            return result;
        }
        result.absent = byId("absent").checked;
        result.cell = cellFields.map(numberIn);
        result.d_min = numberIn(byId("d-min"));
        result.wavelength = numberIn(byId("wavelength"));
        return result;
    }

    function offer(cell) {
        const button = byId("use-cell");
        button.textContent = "Use " + cell.join(" ");
        button.dataset.cell = cell.join(" ");
        button.hidden = false;
    }

    // Lists them, or saves them in a format.
    function ask(format) {
        if (!view.current()) return;
        const answer = program.call(request(format));
        clear();
        if (answer.message !== undefined) {
            view.say(status, answer.message, true);
            if (answer.fits) offer(answer.fits);
        } else if (format) {
            view.save(answer);
        } else {
            byId("reflections-list").innerHTML = answer.html;
            view.say(status, answer.count + " reflections", false);
        }
    }

    byId("reflections-form").addEventListener("submit", function (event) {
        event.preventDefault();
        ask("");
    });
    byId("reflections-form").addEventListener("click", function (event) {
        if (event.target.dataset.file) ask(event.target.dataset.file);
    });
    byId("cell").addEventListener("input", function (event) {
        if (event.target.name === "cell") cellTyped = true;
    });
    byId("use-cell").addEventListener("click", function (event) {
        fillCell(event.target.dataset.cell.split(" "));
        ask("");
    });

    return { follow };
})();
