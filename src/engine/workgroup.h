#pragma once

#include <string>

namespace engine {

/// Throws 3044 when the workgroup file is missing, 3029 when it does not know the user with the password.
void checkLogin(const std::string& path, const std::string& user, const std::string& password);

}  // namespace engine
