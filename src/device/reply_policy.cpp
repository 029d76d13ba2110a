#include "device/reply_policy.h"

namespace orvenza::reply_policy {

bool LineIsDone(const Reply& reply) { return Answered(reply) || reply.IsLinkError2(); }

bool Accepted(const Reply& reply) { return !reply.IsError(); }

bool Answered(const Reply& reply) { return !reply.IsError() && !reply.Is(Reply::Kind::kSilence); }

bool NotDone(const Reply& reply) {
  return reply.Is(Reply::Kind::kRefused) || reply.Is(Reply::Kind::kInvalidLine);
}

}  // namespace orvenza::reply_policy
