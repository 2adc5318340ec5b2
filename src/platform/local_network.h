#pragma once

#include <QHostAddress>

#include <utility>
#include <vector>

namespace paneda {

// A network address and the number of leading bits that all addresses of its network share.
using Subnet = std::pair<QHostAddress, int>;

// The networks that this machine is in, its own addresses included.
std::vector<Subnet> OwnSubnets();

// Whether an address belongs to this machine or to a local network: one of `own`, or one that is set apart
// for loopback, private, link-local or other special use, also in the IPv6 forms that contain an IPv4
// address. Everything else is outside.
bool IsLocalAddress(const QHostAddress& address, const std::vector<Subnet>& own);

} // namespace paneda
