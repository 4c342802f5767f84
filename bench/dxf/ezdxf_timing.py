# Times ezdxf's own read and write of a drawing, for comparison with ours.
#   ezdxf_timing.py FILE.dxf [REPEATS]  -> "ezdxf_read_s <best>" and "ezdxf_write_s <best>"
import os
import sys
import tempfile
import time

import ezdxf


def main():
    path = sys.argv[1]
    repeats = int(sys.argv[2]) if len(sys.argv) > 2 else 1
    best_read = best_write = float("inf")
    with tempfile.TemporaryDirectory() as tmp:
        out = os.path.join(tmp, "out.dxf")
        for _ in range(repeats):
            start = time.perf_counter()
            doc = ezdxf.readfile(path)
            best_read = min(best_read, time.perf_counter() - start)
            start = time.perf_counter()
            doc.saveas(out)
            best_write = min(best_write, time.perf_counter() - start)
    print("ezdxf_read_s %.6f" % best_read)
    print("ezdxf_write_s %.6f" % best_write)
    return 0


if __name__ == "__main__":
    sys.exit(main())
