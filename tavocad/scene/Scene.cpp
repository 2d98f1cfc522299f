#include "tavocad/scene/Scene.h"

#include <algorithm>

namespace tv::scene {

void Scene::finish() {
    box = {};
    chunks.assign((paths.size() + chunk - 1) / chunk, Box{});
    for (std::size_t i = 0; i < paths.size(); ++i)
        chunks[i / chunk].add(paths[i].box);
    for (const Box& part : chunks)
        box.add(part);
    for (const Text& text : texts)
        box.add(text.box);
    for (const Mark& mark : marks)
        box.add(mark.at);
}

} // namespace tv::scene
