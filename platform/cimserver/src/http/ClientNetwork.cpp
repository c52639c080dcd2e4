#include "http/ClientNetwork.h"

#include <boost/asio/ip/address.hpp>

namespace cimserver {

std::string networkOf(std::string_view address) {
    boost::system::error_code error;
    const auto parsed = boost::asio::ip::make_address(std::string(address), error);
    if (error || !parsed.is_v6()) return std::string(address);
    const auto bytes = parsed.to_v6().to_bytes();
    return std::string(bytes.begin(), bytes.begin() + bytes.size() / 2);
}

}  // namespace cimserver
