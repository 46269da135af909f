#!/usr/bin/env python3
"""Works out what a tour has to leave, from the example and the rules in README.md, without the program:
python3 make_kept.py, in this folder."""

from decimal import ROUND_HALF_UP, Decimal

DIRECTIONS = ["0;0", "45;0", "90;0", "135;0"]
CLASSES = 14
ZINC, LEAD, COPPER, CROSS, SUM = 0, 1, 2, 4, 7

# Nugget, letter, sill and range of structure 1, by variable and direction; README.md tells why.
RANGES = ["1250", "1800", "1000", "750"]
MODELS = {(SUM, 0): ("0.18", "S", "1.2", "1250"),
          (COPPER, 0): ("0.048", "S", "0.347", "1246.952"),
          (COPPER, 1): ("0.042", "E", "0.196", "1620.373")}
for variable, nugget, sill, sill_at_45 in ((ZINC, "0.09", "0.66", "0.44"),
                                           (LEAD, "0.09", "0.54", "0.38"),
                                           (CROSS, "0.075", "0.59", "0.4")):
    for d in range(4):
        MODELS[variable, d] = (nugget, "S", sill_at_45 if d == 1 else sill, RANGES[d])

UNUSED = [" 0 ", "-", "0", "0.0001"]


def write(name, lines, end="\r\n"):
    with open(name, "w", encoding="utf-8", newline="") as out:
        out.writelines(line + end for line in lines)


def general(value):
    return f"{value:.15g}"


def class_line(h, gamma, pairs):
    """Numbers between blanks, each at the beginning of a zone of 14 columns."""
    line = ""
    for field in (h, gamma, pairs):
        line = line.ljust(-(-len(line) // 14) * 14) + f" {field} "
    return line


def read_example():
    with open("../../../examples/meuse.zvm", encoding="latin-1", newline="") as file:
        lines = file.read().split("\r\n")
    names = lines[3:10]
    data = lines[16:]
    length = 1 + 4 * CLASSES
    return lines, names, [data[v * length:(v + 1) * length] for v in range(7)]


def sum_block(first, second):
    """Variances and semivariances are added; the distances are the second's, the pairs the first's."""
    block = [f" {general(float(first[0]) + float(second[0]))} "]
    for one, other in zip(first[1:], second[1:]):
        _, gamma1, pairs = one.split()
        h, gamma2, _ = other.split()
        block.append(class_line(h, general(float(gamma1) + float(gamma2)), pairs))
    return block


def model_lines(key):
    if key not in MODELS:
        return [" 0 ", "0"] + 3 * UNUSED
    nugget, letter, sill, reach = MODELS[key]
    return [" 1 ", f" {nugget} ", " 1 ", letter, f" {sill} ", f" {reach} "] + 2 * UNUSED


def write_models(lines, names, blocks):
    models = [model_lines((v, d)) for v in range(8) for d in range(4)]
    write("meuse.zvm", [lines[0], "zevRA1", " 8 ", *names, "zinc+lead", " 4 ", " 14 ", *DIRECTIONS]
          + sum(blocks, []) + sum_block(blocks[ZINC], blocks[LEAD]) + sum(models, []))


def write_kriging():
    write("meuse.ZVP", ["ZGRD", "zevRA1", "ln zinc", " 45 ", " 0 ", " 2 ", " 0.09 ", "0.53",
                        "1             0.44           1800         2.4           2.4",
                        " 135 ", " 0 ", " 135 ", " 0 "])


def write_parameters():
    """All but the first line; colours as red + 256 green + 65536 blue, the model's being #8000c0."""
    fonts = [line for size in ("10", "7.8", "7.8")
             for line in ("Times New Roman", "Times New Roman", f" {size} ")]
    write("zevfit.ini", [" 0 ", " 32768 ", f" {128 + 65536 * 192} ", " 255 ", f" {256**3 - 1} ",
                         "*#0.#0 *", "*####.#0*"] + fonts)


def two_decimals(value):
    return str(Decimal(general(value)).quantize(Decimal("0.01"), ROUND_HALF_UP))


def plot_words(name, v, d, blocks):
    legend = "h( )"
    if v == SUM:
        xmax, ymax, legend = 1700, 2, "h (m)"
    else:
        classes = [line.split() for line in blocks[v][1 + d * CLASSES:1 + (d + 1) * CLASSES]]
        xmax = max(float(h) for h, _, _ in classes)
        ymax = 1.06 * max(float(blocks[v][0]), max(float(gamma) for _, gamma, _ in classes))
    ticks = [two_decimals(top * k / 5) for top in (xmax, ymax) for k in range(1, 6)]
    texts = f"Semivariogram ({DIRECTIONS[d]}) \u03b3 (h) {name} Data Sill Model 0 {legend}"
    return texts.split() + ticks


def write_report(names, blocks):
    plots = [(ZINC, 0), (ZINC, 1), (ZINC, 2), (ZINC, 3), (COPPER, 0), (COPPER, 1), (CROSS, 1), (SUM, 0)]
    words = [plot_words((names + ["zinc+lead"])[v], v, d, blocks) for v, d in plots]
    write("report.txt", sorted(sum(words, [])), "\n")


def main():
    lines, names, blocks = read_example()
    write_models(lines, names, blocks)
    write_kriging()
    write_parameters()
    write_report(names, blocks)


main()
