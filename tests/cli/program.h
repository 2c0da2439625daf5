// SPDX-License-Identifier: GPL-2.0-or-later
// Runs the built program and collects what it says.
#pragma once

#include <string>
#include <vector>

#include "tests/hosts/tempfolder.h"

namespace brelmon::cli::test {

struct Said {
  int status = -1;
  std::string out, err;
};

/// English, whatever the environment says. `input` is its standard input.
Said Brelmon(const std::vector<std::string>& arguments, const std::string& input = {});

/// The module of the samples, read only.
std::string Earth();

/// A copy of the sample module, to be changed.
class EarthCopy : public TempFolder {
 public:
  EarthCopy();
};

bool Contains(const std::string& text, const std::string& part);

}  // namespace brelmon::cli::test
