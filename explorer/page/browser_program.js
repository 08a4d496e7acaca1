// The program, which is in the page, compressed: requests and answers are JSON.
const program = (function () {
    let machine = null;

    async function load(packed) {
        const bytes = Uint8Array.from(atob(packed), function (c) { return c.charCodeAt(0); });
        const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream("gzip"));
        const binary = await new Response(stream).arrayBuffer();
        machine = await createLomar({ wasmBinary: binary });
    }

    function call(request) {
        const bytes = new TextEncoder().encode(JSON.stringify(request) + "\0");
        try {
            const place = machine._malloc(bytes.length);
            if (place === 0) return { message: "out of memory" };
            machine.HEAPU8.set(bytes, place);
            const answer = machine._lomar_call(place);
            machine._free(place);
            const memory = machine.HEAPU8;
            return JSON.parse(new TextDecoder().decode(
                memory.subarray(answer, memory.indexOf(0, answer))));
        } catch (error) {
            return { message: "The program failed: " + error };
        }
    }

    function isThere() { return machine !== null; }

    return { load, call, isThere };
})();
