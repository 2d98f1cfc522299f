#pragma once

#include "platform/drawing/OdDbDatabase.h"
#include "tavocad/scene/SceneBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace tv::scene;

// A drawing of the oldest form from "group|value" words: layer OFF is off, ICE frozen, RED red.
inline Scene sceneOf(const std::string& blocks, const std::string& entities) {
    std::string text =
        "0|SECTION|2|TABLES|0|TABLE|2|LAYER|70|3|0|LAYER|2|OFF|70|0|62|-3|6|CONTINUOUS|"
        "0|LAYER|2|ICE|70|1|62|3|6|CONTINUOUS|0|LAYER|2|RED|70|0|62|1|6|CONTINUOUS|0|ENDTAB|0|ENDSEC|"
        "0|SECTION|2|BLOCKS|" +
        blocks + "0|ENDSEC|0|SECTION|2|ENTITIES|" + entities + "0|ENDSEC|0|EOF|";
    std::replace(text.begin(), text.end(), '|', '\n');
    const auto opened = OdDbDatabase::openBytes(text);
    EXPECT_TRUE(opened.database);
    EXPECT_TRUE(opened.problems.empty());
    return opened.database ? buildScene(*opened.database) : Scene{};
}

inline std::vector<Item> shownOf(const Scene& scene) {
    std::vector<Item> items;
    for (const Item& item : scene.items)
        if (scene.styleOf(item).shown) items.push_back(item);
    return items;
}

inline const std::string line = "10|0|20|0|11|2|21|1|";
inline std::string block(const std::string& name, const std::string& entities) {
    return "0|BLOCK|8|0|2|" + name + "|70|0|10|0|20|0|" + entities + "0|ENDBLK|8|0|";
}
