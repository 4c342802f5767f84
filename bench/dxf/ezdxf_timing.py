# Times ezdxf's own read and write of a drawing, for comparison with ours.
#   ezdxf_timing.py FILE.dxf [REPEATS]  -> "ezdxf_read_s <best>" and "ezdxf_write_s <best>" (wall),
#   then the same as CPU time ("ezdxf_read_cpu_s", "ezdxf_write_cpu_s")
import os
import sys
import tempfile
import time

import ezdxf


def main():
    path = sys.argv[1]
    repeats = int(sys.argv[2]) if len(sys.argv) > 2 else 1
    best_read = best_write = float("inf")
    cpu_read = cpu_write = float("inf")
    with tempfile.TemporaryDirectory() as tmp:
        out = os.path.join(tmp, "out.dxf")
        for _ in range(repeats):
            start, cpu = time.perf_counter(), time.process_time()
            doc = ezdxf.readfile(path)
            best_read = min(best_read, time.perf_counter() - start)
            cpu_read = min(cpu_read, time.process_time() - cpu)
            start, cpu = time.perf_counter(), time.process_time()
            doc.saveas(out)
            best_write = min(best_write, time.perf_counter() - start)
            cpu_write = min(cpu_write, time.process_time() - cpu)
    print("ezdxf_read_s %.6f" % best_read)
    print("ezdxf_write_s %.6f" % best_write)
    print("ezdxf_read_cpu_s %.6f" % cpu_read)
    print("ezdxf_write_cpu_s %.6f" % cpu_write)
    return 0


if __name__ == "__main__":
    sys.exit(main())
