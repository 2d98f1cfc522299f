#include "bench/KeepingReader.h"

#ifdef BENCH_DXFLIB
#include <dl_creationadapter.h>
#include <dl_dxf.h>

#include <vector>

namespace {

template <class Data>
struct Kept {
    DL_Attributes attributes;
    Data data;
};

class Keeper : public DL_CreationAdapter {
  public:
    void addLayer(const DL_LayerData& data) override { m_layers.push_back({getAttributes(), data}); }
    void addPoint(const DL_PointData& data) override { m_points.push_back({getAttributes(), data}); }
    void addLine(const DL_LineData& data) override { m_lines.push_back({getAttributes(), data}); }
    void addCircle(const DL_CircleData& data) override { m_circles.push_back({getAttributes(), data}); }
    void addArc(const DL_ArcData& data) override { m_arcs.push_back({getAttributes(), data}); }
    void addText(const DL_TextData& data) override { m_texts.push_back({getAttributes(), data}); }

    std::size_t count() const {
        return m_layers.size() + m_points.size() + m_lines.size() + m_circles.size() + m_arcs.size() +
               m_texts.size();
    }

  private:
    std::vector<Kept<DL_LayerData>> m_layers;
    std::vector<Kept<DL_PointData>> m_points;
    std::vector<Kept<DL_LineData>> m_lines;
    std::vector<Kept<DL_CircleData>> m_circles;
    std::vector<Kept<DL_ArcData>> m_arcs;
    std::vector<Kept<DL_TextData>> m_texts;
};

} // namespace
#endif

namespace bench {

std::optional<std::size_t> readAndKeepWithDxflib([[maybe_unused]] const std::filesystem::path& file) {
#ifdef BENCH_DXFLIB
    Keeper keeper;
    DL_Dxf reader;
    if (reader.in(file.string(), &keeper)) return keeper.count();
#endif
    return std::nullopt;
}

} // namespace bench
