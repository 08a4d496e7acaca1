// The page around the program: what is typed goes to it, what it answers is shown.
(function () {
    const byId = view.byId;
    const field = byId("symbol");

    // Answers the text of the field. `typed` tells whether it came from the keyboard.
    function ask(typed) {
        if (!program.isThere()) return;
        // Half of a pair of surrogates is no character.
        const text = field.value.replace(/\p{Surrogate}/gu, "\ufffd");
        field.rows = Math.min(8, Math.max(1, text.split("\n").length));
        if (text.trim() === "") return askNothing(typed);
        const answer = program.call({ do: "answer", text: text });
        if (answer.message !== undefined) {
            view.refuse(answer);
            if (typed && text.length <= 200) address.goTo(text.trim());
            return;
        }
        view.show(answer);
        reflections.follow(answer);
        if (typed) address.goTo(answer.address);
    }

    function askNothing(typed) {
        view.clear();
        view.tell("Type a symbol, or paste operators.", false);
        if (!typed) return;
        address.settle();
        address.goTo("");
        address.settle();
    }

    // Browsers tell of a new address in two ways.
    function openAddress() {
        address.follow();
        if (view.current() && field.value === address.text()) return;
        field.value = address.text();
        ask(false);
    }

    field.addEventListener("input", function () { ask(true); });
    field.addEventListener("change", address.settle);
    field.addEventListener("keydown", function (event) {
        // Enter ends a symbol; all else may have lines.
        const shown = view.current();
        if (event.key !== "Enter" || event.shiftKey || !shown || shown.operators) return;
        event.preventDefault();
        address.settle();
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
        if (!button || !view.current()) return;
        view.save(program.call(
            { do: "download", name: view.current().name, format: button.dataset.format }));
    });
    window.addEventListener("popstate", openAddress);
    window.addEventListener("hashchange", openAddress);

    async function start() {
        await program.load(byId("program").textContent.trim());
        const first = program.call({ do: "start" });
        byId("diagram-style").textContent = first.style;
        byId("version").textContent = first.version;
        if (field.value === "") {
            openAddress();
        } else {
            ask(true);
        }
        warming.start();
    }

    start().catch(function (error) {
        view.tell("This browser can't run the page: " + error, true);
    });
})();
