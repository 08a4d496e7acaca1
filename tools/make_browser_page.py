#!/usr/bin/env python3
"""Makes the one file of the browser's page:

    tools/make_browser_page.py PAGE_FOLDER PROGRAM_FOLDER OUTPUT

The template PAGE_FOLDER/browser.html names files between two @, which are in one of the folders;
@program@ is lomar_browser.wasm, compressed, in base64. The output is there whole or not at all.
"""

import base64
import gzip
import os
import re
import sys
from pathlib import Path


def main():
    folders = [Path(sys.argv[1]), Path(sys.argv[2])]
    output = Path(sys.argv[3])

    def content_of(match):
        name = match.group(1)
        if name == "program":
            binary = (folders[1] / "lomar_browser.wasm").read_bytes()
            return base64.b64encode(gzip.compress(binary, 9, mtime=0)).decode()
        path = next(folder / name for folder in folders if (folder / name).exists())
        text = path.read_text(encoding="utf-8").rstrip("\n")
        if name.endswith(".js") and "</script" in text.lower():
            sys.exit(f"{name} would end its element")
        return text

    template = (folders[0] / "browser.html").read_text(encoding="utf-8")
    page = re.sub(r"^(?:@([\w.]+)@)$|(?<=>)@(program)@(?=<)",
                  lambda m: content_of(re.match("@(.*)@", m.group(0))), template,
                  flags=re.MULTILINE)
    temporary = output.with_suffix(".tmp")
    temporary.write_text(page, encoding="utf-8")
    os.replace(temporary, output)


if __name__ == "__main__":
    main()
