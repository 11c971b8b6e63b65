#pragma once

#include "TestRun.h"

#include <string>
#include <string_view>

namespace Examples {

/// Appends text as XML writes it, in attributes and between tags alike. What is not UTF-8 becomes
/// what it becomes in JSON, and what XML cannot hold U+FFFD.
void AppendXmlText(std::string_view Text, std::string& OutReturn);

/// Appends the XML that continuous integration reads: a suite for each file, a case for each
/// example, with the time that it took.
///
///   <testsuite name="np.trr" tests="1" failures="1" errors="0" time="0.000031">
///     <testcase classname="np.trr" name="np.trr:5: the car" time="0.000031">
///       <failure type="differs" message="wanted: el auto; given: la auto"/>
void AppendJunitReport(const TestedGrammar& Tested, const TestResults& Results, bool IsStrict,
                       std::string& OutReturn);

}  // namespace Examples
