"""Writes the reference's page of the Python module from its docstrings: python_page.py FOLDER"""
import ast
import pathlib
import re
import sys


def section(title: str, body: str) -> str:
    language = "py" if title in ("Signature", "Examples") else "unparsed"
    return f"**{title}**\n\n~~~{{.{language}}}\n{body.strip()}\n~~~\n"


def page_of(docstring: str) -> str:
    """The text, and each underlined section of it as it stands."""
    text, *sections = re.split(r"\n\n(\w+)\n-+\n", docstring.replace("``", "`"))
    return "\n".join([text + "\n", *map(section, sections[::2], sections[1::2])])


folder = pathlib.Path(sys.argv[1])
trees = {path.name: ast.parse(path.read_text()) for path in sorted(folder.glob("*.py"))}
functions = {node.name: node for tree in trees.values() for node in tree.body
             if isinstance(node, ast.FunctionDef)}
package = trees["__init__.py"]
public = ast.literal_eval(next(node.value for node in package.body if isinstance(node, ast.Assign)))

text = ast.get_docstring(package).replace("``", "`")
text = re.sub(r"\n\n((?:>>> .*|\(.*\))(?:\n\S.*)*)", r"\n\n~~~{.py}\n\1\n~~~", text)
print(f"# The Python interface {{#python_interface}}\n\n{text}\n")
for name in filter(functions.get, public):
    node = functions[name]
    print(f"## {name} {{#python_{name}}}\n")
    print(section("Signature", f"vorquell.{name}({ast.unparse(node.args)})"))
    print(page_of(ast.get_docstring(node)))
