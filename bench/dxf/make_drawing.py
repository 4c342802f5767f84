# Makes the benchmark drawing with ezdxf: 100,000 entities in model space
# (40k lines, 20k polylines, 20k texts, 10k circles, 10k linear dimensions).
#   make_drawing.py OUT.dxf
import math
import sys

import ezdxf


def make(path):
    doc = ezdxf.new("R2018")
    doc.layers.add("Lines", color=1)
    doc.layers.add("Texts", color=2)
    msp = doc.modelspace()
    for i in range(40000):
        x, y = (i % 200) * 10.0, (i // 200) * 10.0
        msp.add_line((x, y, 0), (x + 7.5, y + 2.25, 0), dxfattribs={"layer": "Lines"})
    for i in range(20000):
        x, y = (i % 100) * 20.0, -(i // 100) * 20.0
        msp.add_lwpolyline([(x, y), (x + 5, y, 0, 0, 0.5), (x + 5, y + 5), (x, y + 5)],
                           format="xyseb", close=(i % 2 == 0))
    for i in range(20000):
        msp.add_text("Text %d" % i, dxfattribs={"insert": (i * 0.5, 3000.0), "height": 2.5,
                                                "rotation": (i % 360), "layer": "Texts"})
    for i in range(10000):
        msp.add_circle((i * 3.0, -5000.0), 1.0 + (i % 7))
    for i in range(10000):
        x = (i % 100) * 30.0
        y = 6000.0 + (i // 100) * 30.0
        angle = 0 if i % 2 == 0 else 90
        dim = msp.add_linear_dim(base=(x, y + 10), p1=(x, y), p2=(x + 12.5, y + (i % 5)),
                                 angle=angle)
        dim.render()
    doc.saveas(path)


def main():
    if len(sys.argv) != 2:
        print("usage: make_drawing.py OUT.dxf", file=sys.stderr)
        return 2
    make(sys.argv[1])
    return 0


if __name__ == "__main__":
    sys.exit(main())
