#pragma once

// Variogram files that the windows are tried on, in lines that end with a line feed.
namespace zevfit::test {

/// One variable of the variance 1, one direction and one class.
inline constexpr const char* kOneClass = "t\nzevra\n1\nv\n1\n1\n0;0\n1\n10 1 9\n";

/// One variable of the variance 1, one direction and three classes; distances up to 30,
/// semivariances up to 2.
inline constexpr const char* kOneDirection =
    "small\nzevra\n1\nzinc\n1\n3\n0;0\n1\n10 0.5 9\n20 1.5 8\n30 2 7\n";

/// The same with a second direction.
inline constexpr const char* kTwoDirections =
    "small\nzevra\n1\nzinc\n2\n3\n0;0\n90;0\n1\n10 0.5 9\n20 1.5 8\n30 2 7\n"
    "10 0.25 9\n20 0.75 9\n30 1 9\n";

/// Two variables of the variances 1 and 4, two directions and three classes.
inline constexpr const char* kTwoVariables =
    "small\nzevra\n2\nzinc\nlead\n2\n3\n0;0\n90;0\n"
    "1\n10 0.5 9\n20 1.5 9\n30 2 9\n10 0.25 9\n20 0.75 9\n30 1 9\n"
    "4\n10 1 9\n20 2 9\n30 3 9\n10 1 9\n20 2 9\n30 8 9\n";

}  // namespace zevfit::test
