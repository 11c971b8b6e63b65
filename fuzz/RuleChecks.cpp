#include "RuleChecks.h"

#include "FuzzSupport.h"
#include "RoundTrip.h"
#include "support/PrivateAccess.h"
#include "support/SlowTwins.h"
#include "support/StreamCapture.h"

#include <algorithm>
#include <memory>
#include <set>
#include <utility>
