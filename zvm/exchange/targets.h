#pragma once

#include <string>

#include "zvm/exchange/export.h"
#include "zvm/exchange/spatial_model.h"

namespace zevfit::exchange {

// The texts of the targets. Each throws Refusal for what its system can't express.

std::string gslibText(const SpatialModel& model, bool gaussian9);
std::string sgemsText(const SpatialModel& model);
std::string gstoolsText(const SpatialModel& model);
std::string pykrigeText(const SpatialModel& model);
std::string gstlearnText(const SpatialModel& model);

/// Of several models a function that makes the gstat object: `direct` in the order of their
/// variables, `crosses` of the variables by their places in `direct`. Throws Refusal for structures
/// that differ in letters or ranges, which make no linear model of coregionalization.
struct CrossModel {
  SpatialModel model;
  std::size_t first = 0, second = 0;
};
std::string gstatText(const SpatialModel& model);
std::string gstatText(const std::vector<SpatialModel>& direct,
                      const std::vector<CrossModel>& crosses);

std::string jsonText(const Session& session, const Request& request, Warnings& warnings);
std::string csvText(const Session& session, const Request& request);
/// The bytes that the results window writes after the plots of all directions have been opened, but
/// that no line settles on the steps of the sliders. Throws Refusal for what the window refuses.
std::string krigingFileText(const Session& session, const Request& request, Warnings& warnings);

/// The directions of a request that needs Main.
Picked pickedOf(const Session& session, const Request& request);

}  // namespace zevfit::exchange
