# gstat.R FOLDER POINTS.csv: each exported model of the folder has in gstat the semivariances that its
# case states, and those of the example krige and cokrige its points.
suppressPackageStartupMessages({
  library(gstat)
  library(sp)
})

arguments <- commandArgs(trailingOnly = TRUE)
folder <- arguments[1]
tolerance <- 1e-9

# The names that a file of R code defines.
run <- function(name) {
  names <- new.env()
  # gstat doubts the third angle of its own formula, which is the one that it is compared with here.
  withCallingHandlers(
    source(file.path(folder, name), local = names, encoding = "UTF-8"),
    warning = function(warning) {
      if (grepl("third rotation angle", conditionMessage(warning))) invokeRestart("muffleWarning")
    }
  )
  names
}

# The largest relative error of a model along the lines of its points.
worst_error <- function(model, points) {
  h <- sqrt(rowSums(points[, 1:3]^2))
  along <- round(points[, 1:3] / h, 9)
  errors <- sapply(split(seq_along(h), apply(along, 1, paste, collapse = " ")), function(rows) {
    first <- rows[which.max(h[rows])]
    direction <- as.numeric(points[first, 1:3]) / h[first]
    gamma <- variogramLine(model, dist_vector = h[rows], dir = direction)$gamma
    expected <- points[rows, 4]
    max(abs(gamma - expected) / ifelse(expected == 0, 1, abs(expected)))
  })
  max(errors)
}

stems <- sub("[.]points$", "", list.files(folder, "[.]points$"))
errors <- sapply(stems, function(stem) {
  points <- as.matrix(read.table(file.path(folder, paste0(stem, ".points"))))
  worst_error(run(paste0(stem, ".gstat"))$m, points)
})
wrong <- names(errors)[!(errors <= tolerance)]
cat(sprintf("| %d models in gstat %s, largest relative error %.2g, %d wrong\n", length(errors),
            packageVersion("gstat"), max(errors), length(wrong)))
if (length(wrong) > 0) print(errors[wrong])

meuse <- read.csv(arguments[2])
coordinates(meuse) <- ~ x + y
box <- bbox(meuse)
grid <- expand.grid(x = seq(box[1, 1], box[1, 2], length.out = 20),
                    y = seq(box[2, 1], box[2, 2], length.out = 20))
coordinates(grid) <- ~ x + y

kriged <- krige(log(zinc) ~ 1, meuse, grid, run("one.gstat")$m, debug.level = 0)
formulas <- list("ln zinc" = log(zinc) ~ 1, "ln lead" = log(lead) ~ 1)
cokriged <- predict(run("several.gstat")$coregionalization(formulas, meuse), grid, debug.level = 0)
variances <- c(kriged$var1.var, unlist(cokriged@data[grep("var$", names(cokriged))]))
unusable <- sum(!is.finite(variances) | variances < 0)
cat(sprintf("| %d kriging and cokriging variances, %d of no use\n", length(variances), unusable))

quit(status = as.integer(length(stems) == 0 || length(wrong) > 0 || unusable > 0))
