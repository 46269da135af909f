# gstat_times.R POINTS WIDTH COUNT [AZIMUTH...]: the processor seconds of gstat for a table of x, y
# and v, then its numbers of pairs by direction and class.
suppressMessages({library(sp); library(gstat)})
arguments <- commandArgs(trailingOnly = TRUE)
points <- read.csv(arguments[1])
width <- as.numeric(arguments[2])
cutoff <- width * as.integer(arguments[3])
azimuths <- if (length(arguments) > 3) as.numeric(arguments[-(1:3)]) else 0
coordinates(points) <- ~ x + y
taken <- system.time(result <- variogram(v ~ 1, points, cutoff = cutoff, width = width, alpha = azimuths))
cat(sum(taken[c("user.self", "sys.self")]), result$np[order(result$dir.hor, result$dist)], "\n")
