# import.R ZVM FOLDER MEUSE: variograms of gstat, written by R and imported, hold the classes of
# the tables: distances and semivariances to the digits that are written, pairs counted once.
suppressMessages({library(sp); library(gstat)})
arguments <- commandArgs(trailingOnly = TRUE)
zvm <- arguments[1]
folder <- arguments[2]
faults <- 0
compared <- 0
refused <- 0

soil <- read.csv(arguments[3])
coordinates(soil) <- ~ x + y
metals <- gstat(gstat(NULL, "zinc", log(zinc) ~ 1, soil), "lead", log(lead) ~ 1, soil)
table <- file.path(folder, "imported.csv")
out <- file.path(folder, "imported.zvm")

imported <- function(width) {
  system2(zvm, c("import", "gstat", table, out, "--overwrite", "-q", "--width", width),
          stdout = FALSE, stderr = FALSE)
}

# The classes of the written file with pairs, in the order of its variables and directions.
classes <- function() {
  lines <- sub("\r$", "", readLines(out))
  variables <- as.integer(lines[3])
  names <- lines[3 + seq_len(variables)]
  directions <- as.integer(lines[4 + variables])
  count <- as.integer(lines[5 + variables])
  azimuths <- as.numeric(sub(";.*", "", lines[5 + variables + seq_len(directions)]))
  at <- 6 + variables + directions
  rows <- list()
  for (name in names) {
    at <- at + 1
    for (azimuth in azimuths) {
      block <- read.table(text = lines[at + seq_len(count) - 1], col.names = c("dist", "gamma", "np"))
      rows[[length(rows) + 1]] <- cbind(block, dir.hor = azimuth, id = name)
      at <- at + count
    }
  }
  rows <- do.call(rbind, rows)
  rows[rows$np > 0, ]
}

compare <- function(what, peer, width, ..., write = write.csv) {
  write(peer, table, ...)
  bad <- function(text) {
    cat("FAULT", what, ":", text, "\n")
    faults <<- faults + 1
  }
  if (imported(width) != 0) return(bad("refused"))
  peer <- as.data.frame(peer)
  cross <- grepl(".", peer$id, fixed = TRUE)
  peer$np <- ifelse(cross, peer$np / 2, peer$np)
  peer$id <- sub(".", "-", peer$id, fixed = TRUE)
  own <- classes()
  sorted <- function(rows) rows[order(rows$id, rows$dir.hor, rows$dist), ]
  own <- sorted(own)
  peer <- sorted(peer)
  compared <<- compared + nrow(peer)
  if (nrow(own) != nrow(peer) || any(own$id != peer$id)) return(bad("rows differ"))
  if (any(own$np != peer$np)) bad("pairs differ")
  if (any(abs(own$dist - peer$dist) > 1e-12 * peer$dist)) bad("distances differ")
  if (any(abs(own$gamma - peer$gamma) > 1e-12 * max(abs(peer$gamma)))) bad("semivariances differ")
}

for (width in c(50, 100, 110)) {
  compare(paste("all directions", width), variogram(metals, cutoff = 1500, width = width), width)
  compare(paste("four directions", width),
          variogram(metals, cutoff = 1500, width = width, alpha = c(0, 45, 90, 135)), width)
}
# Classes without pairs, and rows without names.
sparse <- soil[seq(1, 155, by = 6), ]
compare("sparse", variogram(log(zinc) ~ 1, sparse, cutoff = 1000, width = 20), 20, row.names = FALSE)
# As write.table has it, whose names of rows have no heading.
both <- variogram(metals, cutoff = 1500, width = 100, alpha = c(0, 90))
for (sep in c(" ", ",", "\t", ";")) {
  compare(paste0("write.table, parted by '", sep, "'"), both, 100, sep = sep, write = write.table)
}
compare("write.table without quotes and names", both, 100, quote = FALSE, row.names = FALSE, write = write.table)
printed <- function(peer, file) {
  sink(file)
  print(as.data.frame(peer), digits = 15)
  sink()
}
compare("print", both, 100, write = printed)
# One class more and a shorter one at the cutoff.
compare("cutoff", variogram(log(zinc) ~ 1, soil, cutoff = 1543.2, width = 100), 100)

refuse <- function(what, peer, width = 100, write = write.csv) {
  write(peer, table)
  if (imported(width) == 3) {
    refused <<- refused + 1
  } else {
    cat("FAULT", what, "is not refused\n")
    faults <<- faults + 1
  }
}
other <- gstat(gstat(NULL, "zinc", log(zinc) ~ 1, soil), "lead", log(lead) ~ 1, soil[1:150, ])
apart <- gstat(gstat(NULL, "zinc", log(zinc) ~ 1, soil[1:80, ]), "lead", log(lead) ~ 1, soil[81:155, ])
refuse("a cloud", variogram(log(zinc) ~ 1, soil, cutoff = 500, cloud = TRUE))
refuse("a map", as.data.frame(variogram(log(zinc) ~ 1, soil, cutoff = 500, width = 100, map = TRUE)))
refuse("a covariogram", variogram(log(zinc) ~ 1, soil, cutoff = 500, width = 100, covariogram = TRUE))
refuse("a pseudo cross variogram", variogram(other, cutoff = 1500, width = 100))
refuse("one of places apart", variogram(apart, cutoff = 1500, width = 100))
refuse("decimal commas", variogram(log(zinc) ~ 1, soil, cutoff = 500, width = 100), write = write.csv2)
refuse("another width", variogram(log(zinc) ~ 1, soil, cutoff = 500, width = 50))

cat("|", compared, "classes of gstat imported,", refused, "tables rightly refused,", faults, "faults\n")
quit(status = if (faults > 0 || compared == 0) 1 else 0)
