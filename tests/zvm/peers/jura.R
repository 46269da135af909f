# jura.R: writes tests/support/jura_classes.h (through clang-format), the experimental semivariograms of seven metals of the
# Jura set that comes with gstat, standardised, up to 1.5 km in classes of 0.1 km, with the sums of
# squares that gstat's own fits of a nugget and spherical structures of 0.2 and 1.3 km leave.
suppressMessages({library(sp); library(gstat)})
data(jura)
metals <- c("Cd", "Co", "Cr", "Cu", "Ni", "Pb", "Zn")
soil <- jura.pred
for (metal in metals) soil[[metal]] <- as.numeric(scale(soil[[metal]]))
coordinates(soil) <- ~ Xloc + Yloc
g <- NULL
for (metal in metals) g <- gstat(g, metal, as.formula(paste(metal, "~ 1")), soil)
classes <- variogram(g, cutoff = 1.5, width = 0.1)
model <- vgm(1, "Sph", 1.3, add.to = vgm(1, "Sph", 0.2, nugget = 0.1))
clipped <- fit.lmc(classes, gstat(g, model = model, fill.all = TRUE), fit.ranges = FALSE)

squares <- 0
for (id in unique(classes$id)) {
  own <- classes[classes$id == id, ]
  line <- variogramLine(clipped$model[[as.character(id)]], dist_vector = own$dist)$gamma
  squares <- squares + sum(own$np / own$dist^2 * (own$gamma - line)^2)
}
number <- function(value, digits) paste(format(value, digits = digits, trim = TRUE), collapse = ", ")
direct <- classes[classes$id == metals[1], ]
cat("// Written by tests/zvm/peers/jura.R.\n#pragma once\n\n#include <array>\n#include <cstddef>\n\n")
cat("namespace zevfit::test {\n\n")
cat("inline constexpr std::size_t kJuraMetals = ", length(metals), ";\n", sep = "")
cat("/// Weighted squares that one clip of the eigenvalues leaves.\n")
cat("inline constexpr double kJuraClipped = ", number(squares, 10), ";\n\n", sep = "")
cat("using JuraRow = std::array<double, ", nrow(direct), ">;\n", sep = "")
cat("inline constexpr JuraRow kJuraDistances{", number(direct$dist, 12), "};\n", sep = "")
cat("/// Of one metal; twice as many of two.\n")
cat("inline constexpr JuraRow kJuraPairs{", number(direct$np, 12), "};\n\n", sep = "")
cat("/// The semivariances of a metal, or of two, by their places.\n")
cat("struct JuraSemivariances {\n  std::size_t first, second;\n  JuraRow values;\n};\n")
ids <- unique(as.character(classes$id))
cat("inline constexpr std::array<JuraSemivariances, ", length(ids), "> kJura{{\n", sep = "")
for (id in ids) {
  own <- classes[classes$id == id, ]
  stopifnot(all.equal(own$dist, direct$dist), own$np == direct$np * if (id %in% metals) 1 else 2)
  at <- match(strsplit(id, ".", fixed = TRUE)[[1]], metals) - 1
  cat("{", at[1], ", ", at[length(at)], ", {", number(own$gamma, 9), "}},\n", sep = "")
}
cat("}};\n\n}  // namespace zevfit::test\n")
