#pragma once

#include <string>

namespace orvenza {

/// The files that a first start writes into the rehearsal's program folder.
struct FirstFiles {
  std::string settings;  ///< With the separator of the examples.
  std::string errDesc;
};
const FirstFiles& FilesOfAFirstStart();

}  // namespace orvenza
