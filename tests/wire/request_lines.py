"""Requests as lines of text, which is what the files cases/*.requests hold.

  [@USER] OPERATION TARGET [NAME=VALUE]... [NAME:TYPE=VALUE]...

OPERATION is one of OPERATIONS or else a method; TARGET is a class or an object path, in root/qrv unless
it says otherwise. NAME=VALUE is a parameter of the operation; with a TYPE it is a property of the
instance or a parameter of the method: without `=` null, with TYPE[] a list with commas. Lines that begin
with # are comments, and after a line "$NAME = TEXT" the text stands for $NAME.
"""
import re
from xml.sax.saxutils import escape, quoteattr

import wire

# What each operation calls its target.
OPERATIONS = {
    "GetClass": "ClassName", "EnumerateInstances": "ClassName", "EnumerateInstanceNames": "ClassName",
    "GetInstance": "InstanceName", "DeleteInstance": "InstanceName", "GetProperty": "InstanceName",
    "SetProperty": "InstanceName", "CreateInstance": "NewInstance", "ModifyInstance": "ModifiedInstance",
    "Associators": "ObjectName", "AssociatorNames": "ObjectName", "References": "ObjectName",
    "ReferenceNames": "ObjectName"}
QUOTED = r'"(?:[^"\\]|\\.)*"'
PATH = re.compile(r"(?://(?P<host>[^/]+)/)?(?:(?P<space>[\w/]+):)?(?P<name>\w+)(?:\.(?P<keys>.*))?")
TYPED = re.compile(r"(\w+):(\w+)(\[\])?(?:=(.*))?", re.DOTALL)


def unquoted(text):
    return re.sub(r"\\(.)", r"\1", text[1:-1]) if text.startswith('"') else text


def tag(name, content="", **attributes):
    return f"<{name}{''.join(f' {k}={quoteattr(v)}' for k, v in attributes.items())}>{content}</{name}>"


def space_path(space):
    return tag("LOCALNAMESPACEPATH", "".join(tag("NAMESPACE", NAME=name) for name in space.split("/")))


def binding(name, text):
    value = unquoted(text)
    inner = PATH.fullmatch(value)
    if value != text and inner and inner["keys"]:
        return tag("KEYBINDING", tag("VALUE.REFERENCE", path(value)), NAME=name)
    kind = "string" if value != text else "boolean" if text in ("TRUE", "FALSE") else "numeric"
    return tag("KEYBINDING", tag("KEYVALUE", escape(value), VALUETYPE=kind), NAME=name)


def instance_name(parts):
    keys = re.findall(rf"(\w+)=({QUOTED}|[^,]*)", parts["keys"] or "")
    return tag("INSTANCENAME", "".join(binding(*key) for key in keys), CLASSNAME=parts["name"])


def path(text):
    parts = PATH.fullmatch(text)
    if not parts["space"]:
        return instance_name(parts)
    space = space_path(parts["space"])
    if not parts["host"]:
        return tag("LOCALINSTANCEPATH", space + instance_name(parts))
    return tag("INSTANCEPATH",
               tag("NAMESPACEPATH", tag("HOST", parts["host"]) + space) + instance_name(parts))


def items(text):
    return re.findall(rf"(?:{QUOTED}|[^,])+", text)


def value(type_name, is_list, text):
    if text is None:
        return ""
    reference = type_name == "reference"
    parts = items(text) if is_list else [text]
    tags = [tag("VALUE.REFERENCE", path(part)) if reference else tag("VALUE", escape(unquoted(part)))
            for part in parts]
    return tag("VALUE.REFARRAY" if reference else "VALUE.ARRAY", "".join(tags)) if is_list else tags[0]


def property_of(word):
    name, type_name, is_list, text = TYPED.fullmatch(word).groups()
    return tag("PROPERTY.ARRAY" if is_list else "PROPERTY", value(type_name, is_list, text), NAME=name,
               TYPE=type_name)


def parameter(word):
    name, type_name, is_list, text = TYPED.fullmatch(word).groups()
    return tag("PARAMVALUE", value(type_name, is_list, text), NAME=name, PARAMTYPE=type_name)


def option(word):
    name, text = word.split("=", 1)
    if name in ("AssocClass", "ResultClass"):
        content = tag("CLASSNAME", NAME=text)
    else:
        content = value("string", name == "PropertyList", text)
    return tag("IPARAMVALUE", content, NAME=name)


def target(kind, parts, members):
    if kind == "ClassName":
        return tag("CLASSNAME", NAME=parts["name"])
    if kind in ("InstanceName", "ObjectName"):
        return instance_name(parts)
    instance = tag("INSTANCE", "".join(map(property_of, members)), CLASSNAME=parts["name"])
    return instance if kind == "NewInstance" else tag("VALUE.NAMEDINSTANCE",
                                                      instance_name(parts) + instance)


def request(line):
    """The user, if one is named, and the message."""
    words = re.findall(rf"(?:{QUOTED}|[^\s\"])+", line)
    user = words.pop(0)[1:] if words[0].startswith("@") else None
    operation, where, rest = words[0], words[1], words[2:]
    parts = PATH.fullmatch(where)
    space = parts["space"] or "root/qrv"
    members = [word for word in rest if TYPED.fullmatch(word)]
    if operation not in OPERATIONS:
        where = tag("LOCALINSTANCEPATH", space_path(space) + instance_name(parts))
        return user, wire.message(tag("METHODCALL", where + "".join(map(parameter, members)),
                                      NAME=operation))
    kind = OPERATIONS[operation]
    content = tag("IPARAMVALUE", target(kind, parts, members), NAME=kind)
    options = [option(word) for word in rest if word not in members]
    return user, wire.message(tag("IMETHODCALL", space_path(space) + content + "".join(options),
                                  NAME=operation))


def requests(text):
    """Each request's line, user and message."""
    names = {}
    for line in text.splitlines():
        if line.startswith("$"):
            name, meaning = line.split(" = ", 1)
            names[name] = meaning
        elif line and not line.startswith("#"):
            yield line, *request(re.sub(r"\$\w+", lambda name: names[name[0]], line))
