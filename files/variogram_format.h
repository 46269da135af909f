#pragma once

/// The variogram file (.ZVM), a single-byte text file in free-field tokens; lines as written:
///
///     title
///     tag                            kModelTag: a model block follows
///     number of variables
///     name of each variable, one a line
///     number of directions
///     number of lag classes
///     name of each direction, one a line
///     for each variable: its variance, then for each direction and class a line of
///         distance, semivariance, number of pairs
///     with a model block: for each variable and direction 14 lines, that is
///         nugget flag, nugget, and for structures 1 to 3 flag, letter, sill, range
namespace zevfit {

inline constexpr const char* kModelTag = "zevra1";         ///< compared trimmed, in lower case
inline constexpr const char* kModelTagWritten = "zevRA1";  ///< as a save writes it
inline constexpr const char* kDataTag = "zevlag";          ///< of a file without models, as written
inline constexpr const char* kPlainTags[] = {kDataTag, "zevra"};  ///< these become kModelTagWritten

/// What a save writes for a structure that is not used; the range is not the session's 1e-05.
inline constexpr const char* kUnusedLetter = "-";
inline constexpr const char* kUnusedSill = "0";
inline constexpr const char* kUnusedRange = "0.0001";

/// Part of the axis that stays free above the highest and below the lowest value.
inline constexpr double kAxisMargin = 1.06;

}  // namespace zevfit
