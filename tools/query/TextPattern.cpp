#include "TextPattern.h"

#include <re2/re2.h>

namespace Query {

struct CompiledPattern {
  CompiledPattern(const std::string& Text, const RE2::Options& Options)
      : Expression(Text, Options) {}

  RE2 Expression;
};

bool TextPattern::Compile(QueryFault& FaultReturn) {
  RE2::Options Options;
  Options.set_log_errors(false);
  Options.set_case_sensitive(!IgnoresCase);
  const auto Compiled = std::make_shared<const CompiledPattern>(Text, Options);
  if (Compiled->Expression.ok()) {
    Expression = Compiled;
    return true;
  }
  const std::size_t Place = Text.find(Compiled->Expression.error_arg());
  FaultReturn = {Place == std::string::npos ? 0 : Place, Compiled->Expression.error()};
  return false;
}

bool TextPattern::Fits(std::string_view Where) const {
  if (Expression == nullptr) {
    return Where.find(Text) != std::string_view::npos;
  }
  return RE2::PartialMatch(re2::StringPiece(Where.data(), Where.size()), Expression->Expression);
}

}  // namespace Query
