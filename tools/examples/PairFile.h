#pragma once

#include "TestedGrammar.h"

#include <string>

namespace Examples {

/// Adds the pairs of a text file, a line each: the source, a tab and the target. A line that begins
/// with "*" is a text that has to be rejected; an empty one is nothing. From the other side, the
/// two of a pair change places, and texts to be rejected are left out.
///
///   the red car<TAB>el auto rojo
///   *red the car
///
/// @code
/// std::ofstream("pairs.txt") << "a car\tun auto\n*car a\n";
/// AddPairs("pairs.txt", Tested);
/// Tested.AllExamples().back().Place;   // "pairs.txt:2"
/// Tested.AllExamples().back().Source;  // "car a"
/// @endcode
///
/// Throws `Grammar::RunError` where the file cannot be read, or a line is not a pair.
void AddPairs(const std::string& File, TestedGrammar& TestedReturn);

}  // namespace Examples
