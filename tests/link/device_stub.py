#!/usr/bin/env python3
"""Prints, as C, a device that has nothing: whatever the given headers declare. Its stores are empty and take everything,
its buses carry nothing."""

import pathlib
import re
import sys

BODIES = {
    "eventbus_open": "static int ends[2]; return pipe(ends) == 0 ? (long)ends : 0;",
    "eventbus_fileno": "return *(int*)bus;",
    "lpc_proxy_call_with_reply": "return -1;",
}


def declared(header):
    """The functions and the variables that a header declares."""
    code = re.sub(r"//.*|#.*|enum \{.*?\};|__attribute__.*(?=;)", "", header.read_text())
    code = re.sub(r"typedef [^;]*;", "", code)
    return re.findall(r"(\w+)\([^;{]*\)\s*;", code), re.findall(r"extern [^;(]*?(\w+);", code)


def main():
    print("#include <unistd.h>\nstatic const int nothing;")
    for header in sys.argv[1:]:
        functions, variables = declared(pathlib.Path(header))
        for name in functions:
            print(f"long {name}(void* bus) {{ {BODIES.get(name, 'return 0;')} }}")
        for name in variables:
            print(f"const void* {name} = &nothing;")


if __name__ == "__main__":
    main()
