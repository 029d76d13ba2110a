#pragma once

#include <memory>
#include <string>

namespace orvenza {

/// Marks a program folder as served by this process, for as long as the object lives.
class InstanceLock {
 public:
  explicit InstanceLock(const std::string& programFolder);
  ~InstanceLock();
  InstanceLock(const InstanceLock&) = delete;
  InstanceLock& operator=(const InstanceLock&) = delete;

  /// False when another living process serves the same folder. A folder that cannot be marked counts as free.
  bool Acquired() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// Whether a living process serves the folder. Only looks: nothing is marked, and nothing stays behind.
bool IsFolderServed(const std::string& programFolder);

}  // namespace orvenza
