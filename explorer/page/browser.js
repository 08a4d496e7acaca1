"use strict";
// The page around the program: what is typed goes to it, what it answers is shown.
(function () {
    const byId = function (id) { return document.getElementById(id); };
    const field = byId("symbol");
    const status = byId("status");
    const cellFields = Array.from(document.getElementsByName("cell"));
    const limitFields = Array.from(document.getElementsByName("limit"));
    let program = null;
    let shown = null;          // the answer on the page
    let settled = true;        // whether the next change is a new place in the history
    let cellTyped = false;     // whether the cell is the user's own
    let settling = 0;          // timers: of the history,
    let moving = 0;            // of the address,
    let drawing = 0;           // of the figures
    let moved = 0;             // when the address was changed
    let waiting = null;        // the one that it changes to

    // A request to the program, and its answer.
    function call(request) {
        const bytes = new TextEncoder().encode(JSON.stringify(request) + "\0");
        try {
            const place = program._malloc(bytes.length);
            if (place === 0) return { message: "out of memory" };
            program.HEAPU8.set(bytes, place);
            const answer = program._lomar_call(place);
            program._free(place);
            const memory = program.HEAPU8;
            return JSON.parse(new TextDecoder().decode(
                memory.subarray(answer, memory.indexOf(0, answer))));
        } catch (error) {
            return { message: "The program failed: " + error };
        }
    }

    // ---- the address bar ----

    function encoded(text) {
        return "#" + encodeURIComponent(text).replace(/%(2F|3A|2C|3B|2B|5E|40|3D)/g, decodeURIComponent);
    }

    function typedInAddress() {
        const text = location.hash.slice(1);
        try {
            return decodeURIComponent(text);
        } catch (error) {
            return text;
        }
    }

    // A line that is being typed is one place in the history, however often it changes.
    function goTo(text) {
        const address = text === "" ? location.pathname + location.search : encoded(text);
        if (settled && typedInAddress() !== text) {
            history.pushState(null, "", address);
            settled = false;
        } else {
            // Browsers refuse too many changes.
            waiting = address;
            clearTimeout(moving);
            moving = setTimeout(move, Math.max(0, moved + 100 - performance.now()));
        }
        clearTimeout(settling);
        settling = setTimeout(settle, 1500);
    }

    function move() {
        clearTimeout(moving);
        if (waiting !== null) history.replaceState(null, "", waiting);
        waiting = null;
        moved = performance.now();
    }

    function settle() {
        move();
        clearTimeout(settling);
        settled = true;
    }

    // ---- the answer ----

    function say(place, text, wrong) {
        place.textContent = text;
        place.classList.toggle("wrong", wrong);
    }

    function showNear(names) {
        const list = byId("near");
        list.replaceChildren();
        names.forEach(function (name) {
            const link = document.createElement("a");
            link.href = encoded(name.replace(/ /g, "_"));
            link.textContent = name;
            const item = document.createElement("li");
            item.append(link);
            list.append(item);
        });
        list.hidden = names.length === 0;
    }

    function showFiles(offers) {
        const list = byId("files").querySelector("ul");
        list.replaceChildren();
        offers.forEach(function (offer) {
            const button = document.createElement("button");
            button.type = "button";
            button.dataset.format = offer.format;
            button.textContent = offer.label;
            button.setAttribute("aria-label", "Download " + offer.label);
            const item = document.createElement("li");
            item.append(button);
            list.append(item);
        });
    }

    function clear() {
        shown = null;
        byId("answer").textContent = "null";
        clearTimeout(drawing);
        byId("page").replaceChildren();
        ["page", "files", "reflections"].forEach(function (id) { byId(id).hidden = true; });
        document.title = "lomar";
    }

    function clearReflections() {
        byId("reflections-list").replaceChildren();
        byId("use-cell").hidden = true;
        say(byId("reflections-status"), "", false);
    }

    // Figures come after the rest of the answer, one at a time, so that the page stays quick.
    function drawNext() {
        clearTimeout(drawing);
        const figure = byId("page").querySelector("figure:empty");
        if (!figure) return;
        drawing = setTimeout(function () {
            const made = call({ do: "figure", name: shown.name, figure: figure.dataset.figure });
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
        showFiles(answer.downloads);
        byId("page").hidden = byId("files").hidden = false;
        byId("reflections").hidden = !answer.cell;
        if (answer.cell && !cellTyped) {
            cellFields.forEach(function (input, i) { input.value = answer.cell[i]; });
        }
        clearReflections();
        document.title = answer.title + " - lomar";
        say(status, answer.title, false);
        showNear([]);
    }

    // Answers the text of the field. `typed` tells whether it came from the keyboard.
    function ask(typed) {
        if (!program) return;
        // Half of a pair of surrogates is no character.
        const text = field.value.replace(/\p{Surrogate}/gu, "\ufffd");
        field.rows = Math.min(8, Math.max(1, text.split("\n").length));
        if (text.trim() === "") {
            clear();
            showNear([]);
            say(status, "Type a symbol, or paste operators.", false);
            if (typed) { settle(); goTo(""); settle(); }
            return;
        }
        const answer = call({ do: "answer", text: text });
        if (answer.message === undefined) {
            show(answer);
            if (typed) goTo(answer.address);
            return;
        }
        clear();
        answer.near = answer.near || [];
        showNear(answer.near);
        // The candidates are links.
        const near = answer.near.length > 0 ? answer.message.lastIndexOf("; near: ") : -1;
        say(status, near < 0 ? answer.message : answer.message.slice(0, near) + "; near are:", true);
        if (typed && text.length <= 200) goTo(text.trim());
    }

    // Browsers tell of a new address in two ways.
    function openAddress() {
        waiting = null;
        settle();
        if (shown && field.value === typedInAddress()) return;
        field.value = typedInAddress();
        ask(false);
    }

    // ---- files ----

    function save(file) {
        if (file.message !== undefined) return say(status, file.message, true);
        const link = document.createElement("a");
        const type = file.file.endsWith(".svg") ? "image/svg+xml" : "text/plain";
        link.href = URL.createObjectURL(new Blob([file.text], { type: type }));
        link.download = file.file;
        link.click();
        setTimeout(function () { URL.revokeObjectURL(link.href); }, 10000);
        say(status, file.file + " is saved.", false);
    }

    // ---- reflections ----

    function numberIn(input) { return input.value.trim() === "" ? null : Number(input.value); }

    function reflections(format) {
        if (!shown) return;
        const request = { do: "reflections", name: shown.name, absent: byId("absent").checked };
        if (format) request.format = format;
        if (format === "hkl") {
            request.absent = false;
            request.limits = limitFields.map(numberIn);
        } else {
            request.cell = cellFields.map(numberIn);
            request.d_min = numberIn(byId("d-min"));
            request.wavelength = numberIn(byId("wavelength"));
        }
        const answer = call(request);
        clearReflections();
        if (answer.message !== undefined) {
            say(byId("reflections-status"), answer.message, true);
            if (!answer.fits) return;
            const button = byId("use-cell");
            button.textContent = "Use " + answer.fits.join(" ");
            button.dataset.cell = answer.fits.join(" ");
            button.hidden = false;
        } else if (format) {
            save(answer);
        } else {
            byId("reflections-list").innerHTML = answer.html;
            say(byId("reflections-status"), answer.count + " reflections", false);
        }
    }

    // ---- what the user does ----

    field.addEventListener("input", function () { ask(true); });
    field.addEventListener("change", settle);
    field.addEventListener("keydown", function (event) {
        // Enter ends a symbol; all else may have lines.
        if (event.key !== "Enter" || event.shiftKey || !shown || shown.operators) return;
        event.preventDefault();
        settle();
    });
    document.addEventListener("keydown", function (event) {
        if (event.key !== "/" || event.ctrlKey || event.metaKey || event.altKey) return;
        if (/^(INPUT|TEXTAREA)$/.test(document.activeElement.tagName)) return;
        event.preventDefault();
        field.focus();
        field.select();
    });
    byId("ask").addEventListener("submit", function (event) { event.preventDefault(); });
    byId("files").addEventListener("click", function (event) {
        const button = event.target.closest("button");
        if (!button || !shown) return;
        save(call({ do: "download", name: shown.name, format: button.dataset.format }));
    });
    byId("reflections-form").addEventListener("submit", function (event) {
        event.preventDefault();
        reflections("");
    });
    byId("reflections-form").addEventListener("click", function (event) {
        if (event.target.dataset.file) reflections(event.target.dataset.file);
    });
    byId("cell").addEventListener("input", function (event) {
        if (event.target.name === "cell") cellTyped = true;
    });
    byId("use-cell").addEventListener("click", function (event) {
        const cell = event.target.dataset.cell.split(" ");
        cellFields.forEach(function (input, i) { input.value = cell[i]; });
        reflections("");
    });
    window.addEventListener("popstate", openAddress);
    window.addEventListener("hashchange", openAddress);

    // ---- the start ----

    // The program is in the page, compressed.
    async function start() {
        const packed = Uint8Array.from(atob(byId("program").textContent.trim()),
            function (c) { return c.charCodeAt(0); });
        const stream = new Blob([packed]).stream().pipeThrough(new DecompressionStream("gzip"));
        const binary = await new Response(stream).arrayBuffer();
        program = await createLomar({ wasmBinary: binary });
        const first = call({ do: "start" });
        byId("diagram-style").textContent = first.style;
        byId("version").textContent = first.version;
        if (field.value === "") {
            openAddress();
        } else {
            ask(true);
        }
    }

    start().catch(function (error) {
        say(status, "This browser can't run the page: " + error, true);
    });
})();
