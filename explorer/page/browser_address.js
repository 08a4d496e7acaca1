// What is shown, in the address bar and the history.
const address = (function () {
    const settlesAfter = 1500;  // milliseconds without a change
    const mayMoveAfter = 100;   // browsers refuse too many changes

    let settled = true;  // whether the next change is a new place in the history
    let settling = 0;    // timers: of that,
    let moving = 0;      // and of the next change
    let moved = 0;       // when the address was changed
    let waiting = null;  // the one that it changes to

    function encoded(text) {
        return "#" + encodeURIComponent(text).replace(/%(2F|3A|2C|3B|2B|5E|40|3D)/g, decodeURIComponent);
    }

    // The text that the address says.
    function text() {
        const place = location.hash.slice(1);
        try {
            return decodeURIComponent(place);
        } catch (error) {
            return place;
        }
    }

    // A line that is being typed is one place in the history, however often it changes.
    function goTo(wanted) {
        const place = wanted === "" ? location.pathname + location.search : encoded(wanted);
        if (settled && text() !== wanted) {
            history.pushState(null, "", place);
            settled = false;
        } else {
            waiting = place;
            clearTimeout(moving);
            moving = setTimeout(move, Math.max(0, moved + mayMoveAfter - performance.now()));
        }
        clearTimeout(settling);
        settling = setTimeout(settle, settlesAfter);
    }

    function move() {
        clearTimeout(moving);
        if (waiting !== null) history.replaceState(null, "", waiting);
        waiting = null;
        moved = performance.now();
    }

    // The line is complete.
    function settle() {
        move();
        clearTimeout(settling);
        settled = true;
    }

    // The browser went elsewhere.
    function follow() {
        waiting = null;
        settle();
    }

    return { encoded, text, goTo, settle, follow };
})();
