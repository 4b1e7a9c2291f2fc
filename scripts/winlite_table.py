#!/usr/bin/env python3
"""Writes the table of what winlite offers, and where it differs from Windows, from the documentation in its headers.

Usage: winlite_table.py DOXYGEN_XML_FOLDER OUTPUT.md
"""
import pathlib
import sys
import xml.etree.ElementTree as ElementTree

ROOMS = {"gdi": "GDI", "gdiplus": "GDI+", "user": "Windows, input and messages", "files": "Files and errors",
         "mfc": "The class library"}
MARK = "Different from"


def text_of(element):
    return " ".join("".join(element.itertext()).split()) if element is not None else ""


def documentation(member):
    return (text_of(member.find("briefdescription")) + " " + text_of(member.find("detaileddescription"))).strip()


def split_difference(text):
    """The text before the sentence that tells the difference, and what that sentence says."""
    start = text.find(MARK)
    if start < 0:
        return text, ""
    difference = text[text.index(":", start) + 1:].strip()
    return text[:start].strip(), difference[:1].upper() + difference[1:]


def row(name, text):
    does, differs = split_difference(text)
    cell = lambda s: s.replace("|", "\\|")
    return f"| `{name}` | {cell(does)} | {cell(differs)} |"


def functions(compound):
    """Each function once, overloads together under the first documented one."""
    found = {}
    for member in compound.iter("memberdef"):
        if member.get("kind") == "function" and member.get("prot") != "private":
            name = member.findtext("name")
            found[name] = found.get(name) or documentation(member)
    return found


def room_of(compound):
    path = pathlib.PurePath(compound.find("location").get("file"))
    return next((room for room in ROOMS if room in path.parts), None)


def rows_of(compound):
    if compound.get("kind") == "file":
        return [row(name, text) for name, text in sorted(functions(compound).items())]
    name = compound.findtext("compoundname")
    members = [m for m in functions(compound) if not m.startswith(("~", "operator")) and m != name.split("::")[-1]]
    text = documentation(compound)
    if members:
        text += " Members: " + ", ".join(f"`{m}`" for m in sorted(members)) + "."
    notes = [f"`{n}`: {split_difference(t)[1]}" for n, t in sorted(functions(compound).items()) if MARK in t]
    does, differs = split_difference(text)
    return [f"| `{name}` | {does} | {' '.join(filter(None, [differs, *notes]))} |"]


def main():
    folder, output = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    rows = {room: [] for room in ROOMS}
    for path in sorted(folder.glob("*.xml")):
        compound = ElementTree.parse(path).getroot().find("compounddef")
        wanted = compound is not None and compound.get("kind") in ("file", "class") and compound.find("location") is not None
        if wanted and not compound.findtext("compoundname").startswith("winlite::"):
            rows.get(room_of(compound), []).extend(rows_of(compound))
    with output.open("w") as file:
        file.write("# What winlite offers\n\nWritten by `scripts/docs` from the headers. Names and behaviour are those of"
                   " Windows; what is not\nlisted is not there and does not compile. The last column says where winlite"
                   " differs.\n")
        for room, title in ROOMS.items():
            file.write(f"\n## {title}\n\n| name | what it does | differs |\n|---|---|---|\n")
            file.writelines(line + "\n" for line in sorted(set(rows[room]), key=str.lower))


main()
