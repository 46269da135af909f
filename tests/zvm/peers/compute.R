# compute.R ZVM FOLDER MEUSE: experimental semivariograms of the command with --compat gstat beside
# those of gstat itself: numbers of pairs equal, means within 1e-9.
suppressMessages({library(sp); library(gstat)})
arguments <- commandArgs(trailingOnly = TRUE)
zvm <- arguments[1]
folder <- arguments[2]
meuse <- arguments[3]
faults <- 0
compared <- 0

# The classes of a file of one direction or several, as a data frame with the rows that have pairs.
classes <- function(file) {
  lines <- sub("\r$", "", readLines(file))
  at <- 3
  variables <- as.integer(lines[at])
  names <- lines[at + seq_len(variables)]
  at <- at + variables + 1
  directions <- as.integer(lines[at])
  count <- as.integer(lines[at + 1])
  at <- at + 2 + directions
  rows <- list()
  for (v in seq_len(variables)) {
    at <- at + 1
    for (d in seq_len(directions)) {
      block <- read.table(text = lines[at + seq_len(count) - 1], col.names = c("dist", "gamma", "np"))
      rows[[length(rows) + 1]] <- cbind(variable = names[v], direction = d, block)
      at <- at + count
    }
  }
  rows <- do.call(rbind, rows)
  rows[rows$np > 0, ]
}

compare <- function(what, own, peer) {
  compared <<- compared + nrow(peer)
  bad <- function(text) {
    cat("FAULT", what, ":", text, "\n")
    faults <<- faults + 1
  }
  if (nrow(own) != nrow(peer)) return(bad(paste(nrow(own), "classes, gstat has", nrow(peer))))
  if (nrow(peer) == 0) return()
  if (any(own$np != peer$np)) return(bad("numbers of pairs differ"))
  if (any(abs(own$dist - peer$dist) > 1e-9 * pmax(1e-3, peer$dist))) bad("distances differ")
  if (any(abs(own$gamma - peer$gamma) > 1e-9 * max(abs(peer$gamma)))) bad("semivariances differ")
}

run <- function(points, options, compat = c("--compat", "gstat")) {
  out <- file.path(folder, "out.zvm")
  status <- system2(zvm, c("compute", points, out, "--overwrite", "-q", compat, shQuote(options)),
                    stdout = FALSE)
  if (status != 0) stop("zvm ended with ", status)
  classes(out)
}

# Directions: azimuth, dip positive down as the command has it, tolerance.
directionOptions <- function(azimuths, dips, tolerance) {
  names <- paste0(azimuths, ";", dips)
  c(rbind("--dir", names), "--tol", format(tolerance, digits = 17))
}

oneSet <- function(what, data, space, width, count, azimuths, dips, tolerance) {
  file <- file.path(folder, "points.csv")
  write.csv(format(data, digits = 17, trim = TRUE), file, row.names = FALSE, quote = FALSE)
  columns <- c("--x", "x", "--y", "y", if (space) c("--z", "z"))
  own <- run(file, c(columns, "--var", "a,b", "--cross", "a:b", "--lag", format(width, digits = 17),
                     "--lags", count, directionOptions(azimuths, dips, tolerance)))
  data <- read.csv(file)
  coordinates(data) <- if (space) ~ x + y + z else ~ x + y
  g <- gstat(gstat(NULL, "a", a ~ 1, data), "b", b ~ 1, data)
  for (d in seq_along(azimuths)) {
    peer <- variogram(g, cutoff = count * width, width = width, alpha = azimuths[d] %% 360,
                      beta = (-dips[d]) %% 360, tol.hor = tolerance, tol.ver = tolerance)
    for (id in c("a", "b", "a.b")) {
      name <- sub(".", "-", id, fixed = TRUE)
      compare(paste(what, id, azimuths[d], dips[d]),
              own[own$variable == name & own$direction == d, ], peer[peer$id == id, ])
    }
  }
}

set.seed(7)
random <- function(n, scale, offset = 0) {
  data.frame(x = offset + scale * runif(n), y = offset + scale * runif(n), z = scale * runif(n),
             a = rnorm(n), b = rnorm(n))
}
grid <- function(n) {
  data <- expand.grid(x = seq_len(n), y = seq_len(n), z = 1:2)
  data$a <- (3 * data$x + 7 * data$y + data$z) %% 5
  data$b <- (5 * data$x + 2 * data$y) %% 7
  data
}
quarters <- c(0, 45, 90, 135)
flat <- rep(0, 4)
oneSet("plane", random(600, 1), FALSE, 0.05, 10, quarters, flat, 22.5)
oneSet("far away", random(600, 1000, 4e6), FALSE, 40, 12, quarters, flat, 22.5)
oneSet("wide", random(400, 1), FALSE, 0.1, 5, c(0, 30), c(0, 0), 60)
oneSet("omnidirectional", random(400, 1), FALSE, 0.07, 9, 0, 0, 90)
lattice <- grid(8)
oneSet("lattice", lattice[lattice$z == 1, ], FALSE, 1, 4, c(0, 90), c(0, 0), 45)
oneSet("space", random(500, 1), TRUE, 0.1, 6, c(0, 90, 40), c(0, 0, 0), 30)
oneSet("dips", random(500, 1), TRUE, 0.1, 6, c(0, 90, 40), c(30, -45, 60), 22.5)
oneSet("lattice in space", lattice, TRUE, 1, 3, c(0, 90, 45), c(0, 45, -30), 30)
doubled <- random(200, 1)
oneSet("doubled", rbind(doubled, transform(doubled, a = b, b = a)), FALSE, 0.1, 5, quarters, flat, 22.5)

# The table that comes with the program, without --compat too: where no distance lies on an edge that
# two doubles see otherwise, and no step on one of a sector, both count the same.
soil <- read.csv(meuse)
coordinates(soil) <- ~ x + y
for (width in c(100, 120)) {
  peer <- variogram(log(zinc) ~ 1, soil, cutoff = 15 * width, width = width)
  sectors <- variogram(log(zinc) ~ 1, soil, cutoff = 15 * width, width = width, alpha = quarters)
  options <- c("--x", "x", "--y", "y", "--var", "zinc", "--log", "zinc", "--lag", width, "--lags", 15)
  for (compat in list(c("--compat", "gstat"), NULL)) {
    compare(paste("meuse", width, compat[2]), run(meuse, options, compat), peer)
    own <- run(meuse, c(options, directionOptions(quarters, flat, 22.5)), compat)
    for (d in seq_along(quarters))
      compare(paste("meuse", width, quarters[d], compat[2]), own[own$direction == d, ],
              sectors[sectors$dir.hor == quarters[d], ])
  }
}
cat(compared, "classes compared,", faults, "faults\n")
quit(status = if (faults > 0) 1 else 0)
