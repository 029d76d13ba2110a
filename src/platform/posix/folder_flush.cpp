#include "platform/posix/folder_flush.h"

#include <fcntl.h>
#include <unistd.h>

#include "platform/posix/descriptor.h"

namespace orvenza {

void FlushFolderOf(const std::string& native) {
  const std::size_t nameAt = native.rfind('/') + 1;  // npos + 1 is 0: the current folder.
  const std::string folder = nameAt == 0 ? "." : native.substr(0, nameAt);
  const Descriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (open.Valid()) ::fsync(open.Get());
}

}  // namespace orvenza
