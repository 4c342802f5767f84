# Independent checks of our DXF files with ezdxf, called by the DXF file tests.
#   audit FILE          -> "errors N" / "fixes N" and one line per message
#   dump FILE           -> one line per entity of every layout and block (see dump_entity)
#   resave IN OUT       -> ezdxf reads IN and writes OUT unchanged in content
#   sample OUT          -> a drawing with every kind the reader must take in, made by ezdxf
#   compare A B         -> the key data of every entity, layer, style and block of A, found
#                          in B under the same handle or name; "same N" or one line per difference
#   proxy FILE          -> per model space entity with proxy graphics, "PROXY <type> <handle>"
#                          and one line per primitive ezdxf's decoder makes of them
import sys

import ezdxf
from ezdxf.proxygraphic import ProxyGraphic


def fmt(value):
    """Values in one canonical text form: numbers with 12 significant digits, vectors as (x,y,z)."""
    if isinstance(value, float):
        text = "%.12g" % value
        return "0" if text == "-0" else text
    if isinstance(value, (int, str)):
        return str(value)
    if hasattr(value, "x") and hasattr(value, "y"):
        return "(" + ",".join(fmt(float(c)) for c in value) + ")"
    if isinstance(value, (list, tuple)):
        return "[" + ",".join(fmt(v) for v in value) + "]"
    return str(value)


def dump_entity(e, where):
    attrs = e.dxf.all_existing_dxf_attribs()
    parts = [e.dxftype(), "in=" + where]
    for key in sorted(attrs):
        if key in ("owner",):
            continue
        parts.append("%s=%s" % (key, fmt(attrs[key])))
    if e.dxftype() == "LWPOLYLINE":
        parts.append("points=" + fmt([fmt(tuple(p)) for p in e.get_points("xyseb")]))
    if e.dxftype() == "MTEXT":
        parts.append("rawtext=" + e.text)
    if e.dxftype() == "POLYLINE":
        parts.append("vertices=" + fmt([fmt(v.dxf.location) for v in e.vertices]))
    xdata = getattr(e, "xdata", None)
    if xdata is not None:
        for app in sorted(xdata.data):
            parts.append("xdata:%s=%s" % (app, fmt([fmt(t[1]) for t in xdata.get(app)])))
    return "|".join(parts)


def cmd_audit(path):
    doc = ezdxf.readfile(path)
    auditor = doc.audit()
    print("errors", len(auditor.errors))
    print("fixes", len(auditor.fixes))
    for entry in auditor.errors + auditor.fixes:
        print("msg", entry.code, entry.message)


def cmd_dump(path):
    doc = ezdxf.readfile(path)
    for block in doc.blocks:
        for e in block:
            print(dump_entity(e, block.name))
    for layer in doc.layers:
        print("LAYERREC|name=%s|color=%s|linetype=%s|flags=%s"
              % (layer.dxf.name, layer.dxf.color, layer.dxf.linetype, layer.dxf.flags))
    for style in doc.styles:
        print("STYLEREC|name=%s|height=%s|font=%s"
              % (style.dxf.name, fmt(style.dxf.height), style.dxf.font))


# What must survive a read and write by another program, per entity type.
KEYS = {
    "LINE": ["start", "end"],
    "ARC": ["center", "radius", "start_angle", "end_angle"],
    "CIRCLE": ["center", "radius"],
    "LWPOLYLINE": ["flags"],
    "TEXT": ["text", "insert", "height", "rotation", "style"],
    "MTEXT": ["insert", "char_height", "width"],
    "INSERT": ["name", "insert", "xscale", "rotation"],
    "DIMENSION": ["defpoint", "defpoint2", "defpoint3", "text", "dimstyle"],
    "POINT": ["location"],
    "SOLID": ["vtx0", "vtx1", "vtx2", "vtx3"],
}
COMMON = ["layer", "color", "linetype"]


def key_data(e):
    attrs = e.dxf.all_existing_dxf_attribs()
    data = {}
    for key in COMMON + KEYS.get(e.dxftype(), []):
        data[key] = fmt(attrs.get(key, e.dxf.get_default(key) if e.dxf.is_supported(key) else None))
    if e.dxftype() == "LWPOLYLINE":
        data["points"] = fmt([fmt(tuple(p)) for p in e.get_points("xyseb")])
    if e.dxftype() == "MTEXT":
        data["text"] = e.text
    if e.dxftype() == "POLYLINE":
        data["vertices"] = fmt([fmt(v.dxf.location) for v in e.vertices])
    if e.dxftype() == "DIMENSION":
        data["dimtype"] = str(e.dxf.dimtype & 0x0F)
    return data


def collect(doc):
    items = {}
    for block in doc.blocks:
        items["BLOCK " + block.name] = {"count": str(len(block))}
        for e in block:
            items["%s %s in %s" % (e.dxftype(), e.dxf.handle, block.name)] = key_data(e)
    for layer in doc.layers:
        items["LAYER " + layer.dxf.name] = {"color": str(layer.dxf.color), "flags": str(layer.dxf.flags & 7)}
    for style in doc.styles:
        items["STYLE " + style.dxf.name] = {"font": style.dxf.font, "height": fmt(style.dxf.height)}
    return items


# Table names compare without regard to case; an absent value equals its zero default.
NAMES = {"layer", "linetype", "style", "dimstyle", "name"}


def same_value(key, a, b):
    if key in NAMES and a is not None and b is not None:
        return a.upper() == b.upper()
    if {a, b} <= {"None", "0"}:
        return True
    return a == b


def cmd_compare(path_a, path_b):
    a = collect(ezdxf.readfile(path_a))
    b = collect(ezdxf.readfile(path_b))
    differences = 0
    for name, data in a.items():
        if name not in b:
            print("missing", name)
            differences += 1
            continue
        for key, value in data.items():
            if not same_value(key, value, b[name].get(key)):
                print("differs", name, key, value, "->", b[name].get(key))
                differences += 1
    if not differences:
        print("same", len(a))


def cmd_proxy(path):
    doc = ezdxf.readfile(path)
    for e in doc.modelspace():
        data = getattr(e, "proxy_graphic", None)
        if not data:
            continue
        print("PROXY", e.dxftype(), e.dxf.handle)
        for primitive in ProxyGraphic(data, doc).virtual_entities():
            print(dump_entity(primitive, "proxy"))


def cmd_resave(src, dst):
    doc = ezdxf.readfile(src)
    doc.saveas(dst)


def cmd_sample(path):
    doc = ezdxf.new("R2018", setup=True)
    doc.layers.add("Walls", color=3, linetype="DASHED")
    doc.layers.add("Frozen", color=5).freeze()
    doc.styles.add("Narrow", font="arial.ttf").dxf.height = 0.0
    block = doc.blocks.new("Door")
    block.add_line((0, 0), (1, 0))
    block.add_arc((0, 0), 1, 0, 90)
    msp = doc.modelspace()
    msp.add_line((1, 2, 3), (4, 5, 6), dxfattribs={"layer": "Walls", "color": 1})
    msp.add_arc((10, 10), 2.5, 30, 120)
    msp.add_circle((-5, 7.25), 3)
    msp.add_lwpolyline([(0, 0, 0, 0, 0.5), (10, 0, 0, 0, 0), (10, 5, 0, 0, 0)], format="xyseb",
                       close=True)
    msp.add_polyline2d([(0, 0), (1, 1), (2, 0)])
    msp.add_text("Grüße 1252", dxfattribs={"insert": (1, 1), "height": 2.5, "style": "Narrow",
                                          "rotation": 45})
    msp.add_mtext("first line\\Psecond ÄÖÜ", dxfattribs={"insert": (3, 4), "char_height": 1.5,
                                                          "width": 20})
    msp.add_blockref("Door", (20, 20), dxfattribs={"xscale": 2, "rotation": 90})
    msp.add_linear_dim(base=(0, 5), p1=(0, 0), p2=(10, 0)).render()
    msp.add_aligned_dim(p1=(0, 0), p2=(3, 4), distance=1).render()
    msp.add_point((7, 8, 9))
    doc.saveas(path)


def main(argv):
    commands = {"audit": cmd_audit, "dump": cmd_dump, "resave": cmd_resave, "sample": cmd_sample,
                "compare": cmd_compare, "proxy": cmd_proxy}
    if len(argv) < 2 or argv[1] not in commands:
        print("usage: ezdxf_check.py audit|dump|resave|sample|compare|proxy FILE...", file=sys.stderr)
        return 2
    commands[argv[1]](*argv[2:])
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
