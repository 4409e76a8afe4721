# Loading and saving beside ezdxf, and the memory it takes; ratios of one run.
#
# usage: outside_readers.py DRAFTHOST DRAWING.dxf [TURNS]
#
# DRAWING is what velmo_bench leaves in its scratch folder. Times are processor time: of the whole
# program for the host, of reading and saving alone for ezdxf.
import os
import resource
import statistics
import subprocess
import sys
import time


def host_seconds(host, drawing, target):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run([host, "--no-module", "--script", "-", drawing], input=f"SAVEAS {target}\n",
                   text=True, check=True, stdout=subprocess.DEVNULL)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def ezdxf_seconds(drawing, target):
    import ezdxf
    began = time.process_time()
    ezdxf.readfile(drawing).saveas(target)
    return time.process_time() - began


def main(host, drawing, turns=3):
    target = drawing + ".saved.dxf"
    host_seconds(host, drawing, target)
    # Before ezdxf is there: a child counts the memory of the process that it was forked from.
    peak = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss * 1024
    print(f"peak memory {peak / os.path.getsize(drawing):.2f} times the file, at most 6")
    ratios = [host_seconds(host, drawing, target) / ezdxf_seconds(drawing, target)
              for _ in range(int(turns))]
    print(f"load and save {statistics.median(ratios):.4f} of ezdxf's time, at most 0.03")
    for path in (target, target[:-3] + "bak"):
        if os.path.exists(path):
            os.remove(path)


main(*sys.argv[1:])
