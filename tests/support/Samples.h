#pragma once

#include "TrRule.h"

#include <string>
#include <vector>

/// The noun-phrase rule that the driver reads.
inline const std::string SampleText =
    ";; SL: I see the red car\n"
    ";; TL: veo el auto rojo\n"
    ";; Users: 2\n"
    "{NP,8}\n"
    "NP::NP : [DET ADJ N] -> [DET N ADJ]\n"
    "(\n"
    "(X1::Y1)\n"
    "(X2::Y3)\n"
    "(X3::Y2)\n"
    "((x0 det) = x1)\n"
    "((x0 mod) = x2)\n"
    "(x0 = x3)\n"
    "(y0 = x0)\n"
    "(y1 == (y0 det))\n"
    "(y3 == (y0 mod))\n"
    "(y2 = y0))\n";

/// The rule of `SampleText`, as `Print` writes it.
inline const std::string SamplePrinted =
    ";; SL: I see the red car\n"
    ";; TL: veo el auto rojo\n"
    ";; Users: 2\n"
    "{NP,8}\n"
    "NP::NP [DET ADJ N] -> [DET N ADJ]\n"
    "(\n"
    "(X1::Y1)\n"
    "(X2::Y3)\n"
    "(X3::Y2)\n"
    "((X0 DET) = X1)\n"
    "((X0 MOD) = X2)\n"
    "(X0 = X3)\n"
    "(Y0 = X0)\n"
    "(Y1 = (Y0 DET)\n"
    "(Y2 = Y0)\n"
    "(Y3 = (Y0 MOD)\n"
    ")\n";

/// Lists of texts in expectations.
using Strings = std::vector<std::string>;

/// A constraint of each form.
inline const Strings ConstraintSamples = {
    "((x0 det) = x1)",
    "((x0 mod) = x2)",
    "(x0 = x3)",
    "(y0 = x0)",
    "(y1 == (y0 det))",
    "((y1 num) = sg)",
    "((y3 agr gen) = (y2 agr gen))",
    "((x1 num) = (*OR* sg pl))",
    "((x1 num) = (*NOT* sg))",
};

/// The output of `Print`, the only operation that shows the comments and the header type.
std::string Printed(TrRule& Rule);

/// All observable members of a rule, in their order.
std::string Dump(TrRule& Rule);
