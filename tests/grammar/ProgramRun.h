#pragma once

#include "GrammarPaths.h"
#include "support/ChildProcess.h"

#include <fcntl.h>
#include <unistd.h>

#include <string>
#include <vector>

/// Becomes the command, with these arguments. Does not be restored.
inline void ExecuteTrrule(std::vector<std::string> vsArguments) {
  vsArguments.insert(vsArguments.begin(), GrammarPaths::Program);
  std::vector<char*> vArguments;
  for (std::string& sArgument : vsArguments) {
    vArguments.push_back(sArgument.data());
  }
  vArguments.push_back(nullptr);
  execv(GrammarPaths::Program, vArguments.data());
}

/// Runs the command in a folder, with a file as its standard input.
inline ChildEnd RunTrrule(const std::vector<std::string>& vsArguments,
                          const std::string& Folder = "/", const std::string& Input = "/dev/null") {
  return RunInChild([&] {
    if (chdir(Folder.c_str()) == 0 && dup2(open(Input.c_str(), O_RDONLY), STDIN_FILENO) >= 0) {
      ExecuteTrrule(vsArguments);
    }
  });
}
