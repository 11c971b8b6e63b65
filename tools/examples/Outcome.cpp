#include "Outcome.h"

namespace Examples {

std::string_view NameOf(Outcome What) {
  switch (What) {
    case Outcome::Passes:
      return "passes";
    case Outcome::PassesByAnotherRule:
      return "passes by another rule";
    case Outcome::Differs:
      return "differs";
    case Outcome::Fails:
      return "fails";
    case Outcome::Error:
      break;
  }
  return "error";
}

}  // namespace Examples
