#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

/// Pages whose examples are run. A fence of the kind `console` shows commands, after `$` and,
/// where they go on, `>`, each with its output. A fence `trr NAME` holds a grammar that all
/// consoles after it find under that name.
///
///   ```trr nouns.trr
///   N::N : ["car"] -> ["coche"]
///   (X1::Y1)
///   ```
///   ```console
///   $ trrule translate nouns.trr --text car
///   coche
///   ```
struct Console {
  std::vector<std::string> vsCommands;         ///< with "$ " and "> " in front of their lines
  std::string Shown;                           ///< the whole fence
  std::map<std::string, std::string> ssFiles;  ///< the grammars of the page up to here, by name
  int LineNumber = 0;
};

/// The consoles of a page, such as "docs/trrule.md".
std::vector<Console> ReadConsoles(const std::string& Page);

/// Runs each console of a page by a shell, in a folder of its own with a copy of examples/grammar
/// and a `trrule` to call, and compares what both streams give with what the page shows.
/// With TRRULE_WRITE_PAGES in the environment, the page is also written anew with what they give.
/// @param Least how many consoles the page has at least
void ExpectConsolesHold(const std::string& Page, std::size_t Least = 9);
