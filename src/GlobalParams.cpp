#include "GlobalParams.h"

std::string GlobalParams::L2;
int GlobalParams::DebuggingLevel = 0;
bool GlobalParams::SeedGenOnly = false;
bool GlobalParams::ComposOnly = false;
bool GlobalParams::MoveToPOS = false;
bool GlobalParams::BasicConstraints = false;
std::string GlobalParams::OrigGrammarFile;
std::string GlobalParams::HeadTableFile;
bool GlobalParams::Compounds = false;
bool GlobalParams::ProDrop = false;
bool GlobalParams::FindL2Root = false;
bool GlobalParams::AdvConstraints = false;
bool GlobalParams::ComplexCases = false;
bool GlobalParams::MaxCompos = false;
bool GlobalParams::LeaveLexForDiffPOS = false;
bool GlobalParams::LenientPOS = false;
bool GlobalParams::FilterRules = false;
std::set<std::string> GlobalParams::ssRelevantTypes;
bool GlobalParams::NounPerson3 = false;
bool GlobalParams::StrictValConstr = false;
