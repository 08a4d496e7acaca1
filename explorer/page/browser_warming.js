// The first answer of each kind is slow, since the browser compiles what it needs for that. So one
// of each is made while nobody waits for anything: small ones first, so that no pause is long.
const warming = (function () {
    const cell = [5, 5, 5, 90, 90, 90];
    const requests = [
        { do: "answer", text: "P 1" },
        { do: "answer", text: "P 21/c" },
        { do: "figure", name: "P 21/c", figure: "operators" },
        { do: "figure", name: "P 21/c", figure: "elements-b" },
        { do: "figure", name: "P 21/c", figure: "positions-b" },
        { do: "answer", text: "P n m q" },
        { do: "answer", text: "x,y,z;-x,y+1/2,-z+1/2;-x,-y,-z" },
        { do: "answer", text: "62.446" },
        { do: "answer", text: "P 63/m m c" },
        { do: "reflections", name: "P n m a", cell: cell, d_min: 2 },
        { do: "answer", text: "I a -3 d" },
        { do: "answer", text: "y,z,x;x+1/2,y+1/2,z;-x,-y,z;-x,-y,-z;y,x,z" },
        { do: "figure", name: "I a -3 d", figure: "elements-c" },
        { do: "answer", text: "228.139" },
        { do: "answer", text: "F d -3 m:2" },
        { do: "figure", name: "F d -3 m:2", figure: "operators" }
    ];
    const quiet = 400;  // milliseconds since the last sign of the user
    let last = 0;
    let next = 0;

    function whenIdle(what) {
        if (window.requestIdleCallback) {
            requestIdleCallback(what);
        } else {
            setTimeout(what, 50);
        }
    }

    // The first of a kind takes its time on the page as well: fonts, and tables.
    function layOut(markup) {
        const box = document.createElement("div");
        box.className = "unseen";
        box.innerHTML = markup.replace(/ id="[^"]*"/g, "");
        document.body.append(box);
        box.getBoundingClientRect();
        box.remove();
    }

    function step() {
        const pause = last + quiet - performance.now();
        if (pause > 0) return setTimeout(step, pause);
        layOut(program.call(requests[next]).html || "");
        next += 1;
        if (next < requests.length) whenIdle(step);
    }

    function start() {
        ["pointerdown", "keydown", "input"].forEach(function (sign) {
            addEventListener(sign, function () { last = performance.now(); }, { passive: true });
        });
        whenIdle(step);
    }

    return { start };
})();
