#include "platform/local_network.h"

#include <QNetworkInterface>

#include <algorithm>
#include <array>
#include <optional>

namespace paneda {

namespace {

// The registries of the IANA for special use, without those that only documents use.
const std::vector<Subnet>& SpecialSubnets() {
    static const std::vector<Subnet> kSubnets = [] {
        std::vector<Subnet> subnets;
        for (const char* text :
             {"0.0.0.0/8", "10.0.0.0/8", "100.64.0.0/10", "127.0.0.0/8", "169.254.0.0/16", "172.16.0.0/12",
              "192.0.0.0/24", "192.168.0.0/16", "198.18.0.0/15", "224.0.0.0/4", "240.0.0.0/4", "::/127",
              "64:ff9b:1::/48", "fc00::/7", "fe80::/10", "fec0::/10", "ff00::/8"})
            subnets.push_back(QHostAddress::parseSubnet(QString::fromLatin1(text)));
        return subnets;
    }();
    return kSubnets;
}

// The IPv4 address within an IPv6 one that is mapped, translated or a tunnel's.
std::optional<QHostAddress> ContainedAddress(const QHostAddress& address) {
    // The network, and the byte at which the IPv4 address begins.
    static const std::array<std::pair<Subnet, int>, 4> kForms{{
        {{QHostAddress(QStringLiteral("::ffff:0:0")), 96}, 12},
        {{QHostAddress(QStringLiteral("::")), 96}, 12},
        {{QHostAddress(QStringLiteral("64:ff9b::")), 96}, 12},
        {{QHostAddress(QStringLiteral("2002::")), 16}, 2},
    }};
    if (address.protocol() != QAbstractSocket::IPv6Protocol)
        return std::nullopt;
    const Q_IPV6ADDR bytes = address.toIPv6Address();
    for (const auto& [subnet, at] : kForms) {
        if (address.isInSubnet(subnet)) {
            quint32 number = 0;
            for (int i = 0; i < 4; ++i)
                number = number << 8 | bytes[at + i];
            return QHostAddress(number);
        }
    }
    return std::nullopt;
}

bool IsIn(const QHostAddress& address, const std::vector<Subnet>& subnets) {
    return std::any_of(subnets.begin(), subnets.end(), [&](const Subnet& subnet) {
        return address.protocol() == subnet.first.protocol() && address.isInSubnet(subnet);
    });
}

} // namespace

std::vector<Subnet> OwnSubnets() {
    std::vector<Subnet> subnets;
    for (const QNetworkInterface& device : QNetworkInterface::allInterfaces()) {
        for (const QNetworkAddressEntry& entry : device.addressEntries()) {
            const int whole = entry.ip().protocol() == QAbstractSocket::IPv4Protocol ? 32 : 128;
            // A point-to-point device may claim the whole internet as its network.
            const int bits = entry.prefixLength() > 0 ? entry.prefixLength() : whole;
            subnets.emplace_back(entry.ip(), bits);
        }
    }
    return subnets;
}

bool IsLocalAddress(const QHostAddress& address, const std::vector<Subnet>& own) {
    QHostAddress plain = address;
    plain.setScopeId({});
    const auto contained = ContainedAddress(plain);
    return plain.isNull() || IsIn(plain, SpecialSubnets()) || IsIn(plain, own) ||
           (contained && (IsIn(*contained, SpecialSubnets()) || IsIn(*contained, own)));
}

} // namespace paneda
