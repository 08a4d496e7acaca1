"use strict";
// What is pointed at is marked where it is drawn and where it is listed.
(function () {
    // Of a drawn element the operators that it stands for, of a row of the table its operator.
    function operatorsOf(item) {
        return (item.dataset.operators || item.dataset.operator || "").split(";");
    }

    function itemAt(place) {
        return place && place.closest ? place.closest("[data-operators],[data-operator]") : null;
    }

    function mark(item) {
        document.querySelectorAll(".pointed").forEach(function (old) {
            old.classList.remove("pointed");
        });
        if (!item) return;
        const wanted = new Set(operatorsOf(item));
        const others = item.dataset.operators ? "[data-operator]" : "[data-operators]";
        item.classList.add("pointed");
        document.querySelectorAll(others).forEach(function (other) {
            if (operatorsOf(other).some(function (op) { return wanted.has(op); })) {
                other.classList.add("pointed");
            }
        });
    }

    // Thin lines are hard to point at: each gets a broad one that nobody sees.
    window.lomarPrepare = function (root) {
        root.querySelectorAll("[data-operators]>path:not(.corner)").forEach(function (line) {
            const broad = line.cloneNode();
            broad.setAttribute("class", "hit");
            line.before(broad);
        });
    };

    let last = null;
    document.addEventListener("pointerover", function (event) {
        const item = itemAt(event.target);
        if (item !== last) mark(item);
        last = item;
    });
    window.lomarPrepare(document);
})();
