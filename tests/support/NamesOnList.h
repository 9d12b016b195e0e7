#pragma once
// What a list of standards holds, as its readers see it.

#include "standards/StandardList.h"

#include <string>
#include <vector>

inline std::vector<std::string> namesOn(const ocuva::StandardList& list) {
    std::vector<std::string> names;
    std::string name;
    ocuva::Integer index = 0;
    while (list.GetNextStandard(name, index)) {
        names.push_back(name);
    }
    return names;
}
