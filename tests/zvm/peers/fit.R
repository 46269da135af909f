# fit.R PROGRAM: over random cases of one structure, form, noise and classes, the weighted sum of
# squares of our fit beside the best that gstat's fit.variogram reaches from five starts: never above
# it by more than a thousandth, and below each that gstat calls singular.
suppressMessages(library(gstat))
program <- commandArgs(trailingOnly = TRUE)[1]
set.seed(19)
forms <- c("S", "E", "G")
names(forms) <- c("Sph", "Exp", "Gau")
practical <- c(Sph = 1, Exp = 3, Gau = sqrt(3))

oneCase <- function(i) {
  form <- sample(names(forms), 1)
  count <- sample(8:25, 1)
  width <- 10^runif(1, -2, 4)
  dist <- width * (seq_len(count) - runif(count, 0.3, 0.6))
  np <- round(runif(1, 30, 3000) * runif(count, 0.5, 1.5)) + 1
  nugget <- runif(1, 0, 0.6)
  # Every eighth is noise alone, every eighth a range beyond the classes.
  range <- width * count * if (i %% 8 == 1) 3 else runif(1, 0.15, 0.9)
  model <- vgm(if (i %% 8 == 0) 0 else 1 - nugget, form, range / practical[[form]], nugget = nugget)
  gamma <- variogramLine(model, dist_vector = dist)$gamma
  gamma <- 10^runif(1, -3, 3) * pmax(0, gamma * (1 + runif(1, 0.2, 2) * sqrt(2 / np) * rnorm(count)))
  data.frame(np = np, dist = dist, gamma = gamma, dir.hor = 0, dir.ver = 0, id = form)
}

asVariogram <- function(case) structure(case, class = c("gstatVariogram", "data.frame"))

sumOf <- function(case, nugget, sill, form, range) {
  line <- variogramLine(vgm(sill, form, range, nugget = nugget), dist_vector = case$dist)$gamma
  sum(case$np / case$dist^2 * (case$gamma - line)^2)
}

# The five fits of gstat: sum, whether singular, range in its own convention.
peers <- function(case, form) {
  top <- max(case$gamma)
  starts <- max(case$dist) * c(0.05, 0.15, 0.4, 0.8, 1.5) / practical[[form]]
  fits <- lapply(starts, function(range) {
    model <- vgm(0.8 * top, form, range, nugget = 0.2 * top)
    fit <- suppressWarnings(try(fit.variogram(asVariogram(case), model), silent = TRUE))
    if (inherits(fit, "try-error")) return(NULL)
    data.frame(nugget = fit$psill[1], sill = fit$psill[2], range = fit$range[2],
               singular = attr(fit, "singular"))
  })
  do.call(rbind, fits)
}

cases <- lapply(1:200, oneCase)
input <- unlist(lapply(cases, function(case) {
  c(paste(forms[[case$id[1]]], nrow(case)),
    paste(format(case$dist, digits = 17), format(case$gamma, digits = 17), case$np))
}))
# Read back, so that both see the same digits.
own <- read.table(text = system2(program, input = input, stdout = TRUE),
                  col.names = c("nugget", "sill", "range", "sum", "unbounded"))
stopifnot(nrow(own) == length(cases))

faults <- 0
fault <- function(i, ...) {
  cat("FAULT case", i, ...,"\n")
  faults <<- faults + 1
}
worst <- 0
counts <- c(compared = 0, singular = 0, beyond = 0, below = 0)
for (i in seq_along(cases)) {
  case <- cases[[i]]
  form <- case$id[1]
  ours <- with(own[i, ], sumOf(case, nugget, sill, form, range / practical[[form]]))
  if (abs(ours - own$sum[i]) > 1e-6 * own$sum[i] + 1e-12 * sum(case$np / case$dist^2 * case$gamma^2))
    fault(i, "our sum is", own$sum[i], "and gstat's of our model", ours)
  fits <- peers(case, form)
  # A model has no sill below 0 and a range above 0.
  fits <- fits[fits$nugget >= 0 & fits$sill >= 0 & is.finite(fits$range) & fits$range > 0, ]
  limit <- 4 * max(case$dist) / practical[[form]]
  for (k in seq_len(nrow(fits))) {
    sum <- with(fits[k, ], sumOf(case, nugget, sill, form, range))
    # Ranges beyond the grid are named unbounded: what is compared are those within it.
    if (fits$range[k] > limit) {
      counts["beyond"] <- counts["beyond"] + 1
      if (!own$unbounded[i] && ours > 1.001 * sum) fault(i, form, "a range beyond is not named", ours, sum)
      next
    }
    counts["compared"] <- counts["compared"] + 1
    worst <- max(worst, ours / sum - 1)
    if (ours < 0.999 * sum) counts["below"] <- counts["below"] + 1
    if (ours > 1.001 * sum) fault(i, form, "our sum is", ours, "and gstat's", sum, "range", fits$range[k])
    if (!fits$singular[k]) next
    counts["singular"] <- counts["singular"] + 1
    if (ours > sum * (1 + 1e-9)) fault(i, form, "our sum is", ours, "and singular gstat's", sum, "range", fits$range[k], own$range[i])
  }
}
cat(paste(names(counts), counts, collapse = ", "), "- worst", worst, "-", faults, "faults\n")
quit(status = if (faults > 0) 1 else 0)
