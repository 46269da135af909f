"""peers.py PROGRAM FOLDER EXAMPLE: lets the program write its cases into the folder, reads each exported
text as the system does that it is for, evaluates it by that system's published formula, and compares
it with the semivariances that the case states. The standard library only."""

import json
import pathlib
import subprocess
import sys

import python_peers
import text_peers

TOLERANCE = 1e-9

READERS = {
    "gstat": text_peers.gstat,
    "gslib": text_peers.gslib,
    "gslib9": lambda text: text_peers.gslib(text, gaussian=9),
    "sgems": text_peers.sgems,
    "zvp": text_peers.kriging_file,
    "model": text_peers.model_json,
    "gstools": python_peers.gstools,
    "pykrige": python_peers.pykrige,
    "gstlearn": python_peers.gstlearn,
}


def must_refuse(name, case):
    """What a system can't say."""
    has_power = "P" in case["letters"]
    if name == "sgems":
        return has_power
    if name in ("gstools", "pykrige"):
        return not case["oneRatio"] or (name == "gstools" and has_power)
    return False


def is_along(vector, axis):
    length = sum(v * v for v in vector) ** 0.5
    return abs(sum(v * a for v, a in zip(vector, axis)) - length) <= 1e-12 * length


def points_for(name, case):
    """A kriging file has four decimals of the ratios: it is exact along Main alone."""
    points = [(p[:3], p[3]) for p in case["points"]]
    if name == "zvp":
        return [(v, gamma) for v, gamma in points if is_along(v, case["main"])]
    return points


def check(path, case, name):
    """The complaints about one text of a case, None where it is rightly refused."""
    text_path = path.with_suffix("." + name)
    refusal = path.with_suffix("." + name + ".refused")
    if must_refuse(name, case):
        return None if refusal.exists() and not text_path.exists() else [f"{text_path}: not refused"]
    if not text_path.exists():
        if name == "zvp" and not case["letters"]:
            return None
        return [f"{text_path}: refused: {refusal.read_text(encoding='utf-8')}"]
    encoding = "latin-1" if name == "zvp" else "utf-8"
    gamma = READERS[name](text_path.read_bytes().decode(encoding))
    worst, where = 0, None
    for vector, expected in points_for(name, case):
        error = abs(gamma(vector) - expected) / (abs(expected) or 1)
        if not error <= worst:
            worst, where = error, vector
    return [f"{text_path}: off by {worst:.3g} at {where}"] if not worst <= TOLERANCE else []


def check_table(path):
    texts = [path.with_suffix(end).read_text(encoding="utf-8") for end in (".csv", ".model")]
    worst = max(abs(a - b) / (abs(b) or 1) for a, b in text_peers.csv_rows(*texts))
    return [f"{path}: csv off by {worst:.3g}"] if not worst <= TOLERANCE else []


def main():
    program, folder, example = sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3]
    subprocess.run([program, str(folder), example], check=True)
    complaints, evaluated, refused = [], 0, 0
    for path in sorted(folder.glob("*.json")):
        case = json.loads(path.read_text())
        for name in READERS:
            found = check(path, case, name)
            evaluated += found is not None
            refused += found is None
            complaints += found or []
        complaints += check_table(path)
    print(f"| {evaluated} texts evaluated, {refused} rightly refused, {len(complaints)} wrong")
    print("\n".join(complaints))
    sys.exit(1 if complaints or not evaluated else 0)


main()
