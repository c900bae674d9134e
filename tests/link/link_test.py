#!/usr/bin/env python3
"""The program needs nothing but what platform/*.h declares, json-c, libc and pthreads, and the headers are plain C.

--stub FILE only writes, in C, a device that does nothing.
"""

import argparse
import pathlib
import re
import subprocess
import sys

SKIPPED = 77


def symbols(files, *options):
    """Names that nm lists, without versions."""
    listing = subprocess.run(["nm", "--format=posix", *options, *files], check=True, capture_output=True, text=True)
    fields = [line.split() for line in listing.stdout.splitlines()]
    return {field[0].split("@")[0] for field in fields if len(field) > 1}


def declared(header):
    """The functions and variables that a header declares."""
    code = re.sub(r"//.*|#.*|enum \{.*?\};|__attribute__.*(?=;)", "", header.read_text())
    code = re.sub(r"typedef [^;]*;", "", code)
    functions = re.findall(r"(\w+)\([^;{]*\)\s*;", code)
    return set(functions) | set(re.findall(r"extern [^;(]*?(\w+);", code))


def runtime(compiler):
    """What every C program of the compiler is linked with: the target's C library, and the compiler's own."""
    def found(*question):
        return subprocess.run([compiler, *question], check=True, capture_output=True, text=True).stdout.strip()
    libraries = [found(f"-print-file-name={name}") for name in ("libc.so.6", "libc.so")]
    libc = next(library for library in libraries if "/" in library)
    return symbols([libc], "--defined-only", "--dynamic") | symbols([found("-print-libgcc-file-name")], "--defined-only")


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--headers", type=pathlib.Path, required=True)
    arguments.add_argument("--compiler")
    arguments.add_argument("--json-c")
    arguments.add_argument("--stub", type=pathlib.Path)
    arguments.add_argument("objects", nargs="*")
    options = arguments.parse_args()
    headers = sorted(options.headers.glob("*.h"))
    if options.stub:
        names = sorted(set.union(*map(declared, headers)))
        options.stub.write_text("".join(f"long {name}(void) {{ return 0; }}\n" for name in names))
        return 0
    for header in headers:
        subprocess.run([options.compiler, "-std=c11", "-Wall", "-Wextra", "-Werror", "-fsyntax-only", "-I",
                        options.headers.parent, "-x", "c", header], check=True)
    needed = symbols(options.objects, "--undefined-only") - symbols(options.objects, "--defined-only")
    if any(name.startswith(("__asan_", "__tsan_", "__ubsan_")) for name in needed):
        print("a sanitizer's own symbols are in the way")
        return SKIPPED
    shared = options.json_c.endswith(".so")
    allowed = symbols([options.json_c], "--defined-only", "--extern-only", *(["--dynamic"] if shared else []))
    allowed |= runtime(options.compiler)
    allowed |= set.union(*map(declared, headers)) | {"_GLOBAL_OFFSET_TABLE_", "__dso_handle"}
    print("\n".join(sorted(needed - allowed)) or f"all {len(needed)} symbols are accounted for")
    return 1 if needed - allowed else 0


if __name__ == "__main__":
    sys.exit(main())
