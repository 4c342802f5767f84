# Decodes proxy-graphics bytes with ezdxf and prints one JSON object per primitive, so that
# the gi tests can compare what an independent reader sees with what was written.
# Usage: /usr/bin/python3 decode_proxy.py <bytes-file>
import json
import logging
import sys

import ezdxf
from ezdxf.proxygraphic import ProxyGraphic


def rounded(value):
    if isinstance(value, dict):
        return {k: rounded(v) for k, v in value.items()}
    if isinstance(value, float):
        r = round(value, 4)
        return 0.0 if r == 0 else r
    if isinstance(value, (list, tuple)):
        return [rounded(v) for v in value]
    return value


def describe(entity):
    dxf = entity.dxf
    out = {"type": entity.dxftype(), "layer": dxf.get("layer", "0"), "color": dxf.get("color", 256)}
    if dxf.hasattr("true_color"):
        out["true_color"] = dxf.true_color
    if dxf.hasattr("lineweight"):
        out["lineweight"] = dxf.lineweight
    kind = entity.dxftype()
    if kind == "POLYLINE":
        out["closed"] = entity.is_closed
        out["vertices"] = [list(v.dxf.location) for v in entity.vertices]
    elif kind == "HATCH":
        path = entity.paths[0]
        out["vertices"] = [list(v[:2]) for v in path.vertices]
    elif kind == "CIRCLE":
        out["center"] = list(dxf.center)
        out["radius"] = dxf.radius
    elif kind == "ARC":
        out["center"] = list(dxf.center)
        out["radius"] = dxf.radius
        out["start"] = round(dxf.start_angle, 4) % 360
        out["end"] = round(dxf.end_angle, 4) % 360
    elif kind == "TEXT":
        out["text"] = dxf.text
        out["insert"] = list(dxf.insert)
        out["height"] = dxf.height
        out["rotation"] = dxf.rotation
        out["width"] = dxf.get("width", 1.0)
        out["oblique"] = dxf.get("oblique", 0.0)
        out["style"] = dxf.get("style", "Standard")
    elif kind in ("XLINE", "RAY"):
        out["start"] = list(dxf.start)
        out["direction"] = list(dxf.unit_vector)
    return rounded(out)


def main():
    logging.getLogger("ezdxf").setLevel(logging.ERROR)  # its "untested entity" notes
    with open(sys.argv[1], "rb") as f:
        data = f.read()
    doc = ezdxf.new("R2018")
    for name in ("L1", "L2", "L3"):
        if name not in doc.layers:
            doc.layers.add(name)
    layers = [layer.dxf.name for layer in doc.layers]
    print(json.dumps({"layers": layers}))
    for entity in ProxyGraphic(data, doc).virtual_entities():
        print(json.dumps(describe(entity), sort_keys=True))


if __name__ == "__main__":
    main()
