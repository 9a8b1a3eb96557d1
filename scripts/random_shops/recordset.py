"""Persisted recordset files: read in the spelling of the demo program, written in any."""

import copy
import dataclasses
import xml.etree.ElementTree as tree

SCHEMA = "uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882"
DATA_TYPE = "uuid:C2F41010-65B3-11d1-A29F-00AA00C14882"
ROWSET = "urn:schemas-microsoft-com:rowset"
ROW = "#RowsetSchema"


@dataclasses.dataclass
class Column:
    name: str
    type: str
    dbtype: str = ""
    number: int = 0
    hidden: bool = False
    required: bool = False
    alias: str = ""  # the attribute's name in the rows, where it is not the column's


@dataclasses.dataclass
class Recordset:
    columns: list
    rows: list  # dicts of texts by column name; null is missing
    spelling: dict = dataclasses.field(default_factory=dict)

    def column(self, name):
        return next((column for column in self.columns if column.name == name), None)


def read(path):
    root = tree.parse(path).getroot()
    columns = []
    for element in root.iter(f"{{{SCHEMA}}}AttributeType"):
        datatype = element.find(f"{{{SCHEMA}}}datatype")
        columns.append(Column(element.get("name"), datatype.get(f"{{{DATA_TYPE}}}type"),
                              datatype.get(f"{{{ROWSET}}}dbtype", ""), len(columns) + 1))
    return Recordset(columns, [dict(row.attrib) for row in root.iter(f"{{{ROW}}}row")])


def random_spelling(rng):
    """Every one is legal and means the same recordset."""
    def maybe(chance):
        return rng.random() < chance

    return {
        "quote": rng.choice("''\""),
        "prefixes": rng.choice([("s", "dt", "rs", "z"), ("a", "b", "c", "d")]),
        "form": rng.choice(["normal", "normal", "short", "reference"]),
        "encoding": rng.choice(["utf-8", "utf-8", "utf-8-sig", "utf-16", "declared utf-8",
                                "windows-1252", "iso-8859-1"]),
        "shuffled": maybe(0.3),
        "aliases": maybe(0.2),
        "other case": maybe(0.15),
        "raw breaks": maybe(0.4),
        "named references": maybe(0.3),
        "pending": maybe(0.4),
        "noise": maybe(0.3),
        "line end": rng.choice(["\r\n", "\n"]),
    }


class Writer:
    def __init__(self, recordset, rng):
        self.recordset, self.rng, self.spelling = recordset, rng, recordset.spelling
        self.s, self.dt, self.rs, self.z = self.spelling.get("prefixes", ("s", "dt", "rs", "z"))
        self.quote = self.spelling.get("quote", "'")
        self.columns = copy.deepcopy(recordset.columns)
        if self.spelling.get("aliases"):
            for place, column in enumerate(self.columns):
                column.alias = column.alias or f"c{place}"

    def is_on(self, trait):
        return bool(self.spelling.get(trait))

    def attribute(self, name, value):
        return f" {name}={self.quote}{self.escaped(value)}{self.quote}"

    def escaped(self, text):
        named = {"&": "&amp;", "<": "&lt;", ">": "&gt;", "'": "&apos;", '"': "&quot;"}
        encoding = self.spelling.get("encoding", "utf-8")
        limit = {"windows-1252": "cp1252", "iso-8859-1": "latin-1"}.get(encoding, "utf-8")
        by_name = self.is_on("named references")
        result = []
        for letter in text:
            if letter in named:
                result.append(named[letter] if by_name else f"&#x{ord(letter):x};")
            elif letter in "\r\n\t" and not self.is_on("raw breaks"):
                result.append(f"&#x{ord(letter):x};")
            else:
                fits = letter.encode(limit, "ignore")
                result.append(letter if fits else f"&#{ord(letter)};")
        return "".join(result)

    def text(self):
        end = self.spelling.get("line end", "\r\n")
        spaces = {self.s: SCHEMA, self.dt: DATA_TYPE, self.rs: ROWSET, self.z: ROW}
        head = "<xml" + "".join(f" xmlns:{p}='{uri}'" for p, uri in spaces.items()) + ">"
        lines = [head, *self.schema(), f"<{self.rs}:data>"]
        for block in self.blocks():
            if self.is_on("noise") and self.rng.random() < 0.1:
                lines.append("<!-- linje -->")
            if self.is_on("noise") and self.rng.random() < 0.05:
                lines += [f"</{self.rs}:data>", f"<{self.rs}:data>"]
            lines.append(block)
        lines += [f"</{self.rs}:data>", "</xml>"]
        return end.join(lines)

    def bytes(self):
        encoding = self.spelling.get("encoding", "utf-8")
        text = self.text()
        if encoding in ("windows-1252", "iso-8859-1", "declared utf-8"):
            name = encoding.split()[-1]
            text = f"<?xml version='1.0' encoding='{name}'?>\n" + text
            encoding = {"windows-1252": "cp1252"}.get(name, name)
        return text.encode(encoding)

    # --- schema

    def schema(self):
        columns = list(self.columns)
        form = self.spelling.get("form", "normal")
        if self.is_on("shuffled") and form != "reference":
            self.rng.shuffle(columns)
        declared = [self.declaration(column, form) for column in columns]
        references = []
        if form == "reference":
            references = [f"<{self.s}:attribute type='{column.alias or column.name}'/>"
                          for column in columns]
        return [f"<{self.s}:Schema id='RowsetSchema'>",
                f"<{self.s}:ElementType name='row' content='eltOnly'>",
                *(references or declared), f"<{self.s}:extends type='rs:rowbase'/>",
                f"</{self.s}:ElementType>", *(declared if references else []),
                f"</{self.s}:Schema>"]

    def declaration(self, column, form):
        attributes = self.attribute("name", column.alias or column.name)
        if column.alias:
            attributes += self.attribute(f"{self.rs}:name", column.name)
        attributes += self.attribute(f"{self.rs}:number", str(column.number))
        if column.hidden:
            attributes += self.attribute(f"{self.rs}:hidden", "true")
        datatype = self.attribute(f"{self.dt}:type", column.type)
        if column.dbtype:
            datatype += self.attribute(f"{self.rs}:dbtype", column.dbtype)
        if column.required:
            datatype += self.attribute(f"{self.rs}:maybenull", "false")
        else:
            attributes += self.attribute(f"{self.rs}:nullable", "true")
        if form == "short":
            return f"<{self.s}:AttributeType{attributes}{datatype}/>"
        return (f"<{self.s}:AttributeType{attributes}><{self.s}:datatype{datatype}/>"
                f"</{self.s}:AttributeType>")

    # --- rows

    def row(self, values, forced=()):
        attributes = ""
        for column in self.columns:
            if values.get(column.name) is None:
                continue
            name = column.alias or column.name
            if self.is_on("other case") and self.rng.random() < 0.3:
                name = name.lower()
            attributes += self.attribute(name, values[column.name])
        if self.is_on("noise") and self.rng.random() < 0.1:
            attributes += " ukjent='1'"
        if forced:
            attributes += self.attribute(f"{self.rs}:forcenull", " ".join(forced))
        return f"<{self.z}:row{attributes}/>"

    def blocks(self):
        for values in self.recordset.rows:
            way = self.rng.random() if self.is_on("pending") else 1.0
            if way < 0.2:
                yield self.update(values)
            elif way < 0.5:
                yield f"<{self.rs}:insert>{self.row(values)}</{self.rs}:insert>"
            else:
                yield self.row(values)
            if way < 0.1:
                yield f"<{self.rs}:delete>{self.row(values)}</{self.rs}:delete>"

    def update(self, values):
        """The original has some of its values from another row; the new row takes them back."""
        other = self.rng.choice(self.recordset.rows)
        changed = [column for column in self.columns if self.rng.random() < 0.3]
        original = dict(values)
        for column in changed:
            original[column.name] = other.get(column.name)
        new = {column.name: values.get(column.name) for column in changed}
        forced = [column.alias or column.name for column in changed if new[column.name] is None]
        return (f"<{self.rs}:update><{self.rs}:original>{self.row(original)}</{self.rs}:original>"
                f"{self.row(new, forced)}</{self.rs}:update>")


def write(path, recordset, rng):
    path.write_bytes(Writer(recordset, rng).bytes())
