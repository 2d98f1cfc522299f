#pragma once

#include "platform/host/TavoSelection.h"

class DrawingScenes;

// Where the entities of a drawing are, by its scene.
class SceneLocator : public TavoEntityLocator {
  public:
    explicit SceneLocator(DrawingScenes& scenes) : m_scenes(scenes) {}

    void everything(const OdDbDatabasePtr& database, std::vector<OdDbObjectId>& ids) override;
    void at(const OdDbDatabasePtr& database, OdGePoint2d point, double tolerance,
            std::vector<OdDbObjectId>& ids) override;
    void inBox(const OdDbDatabasePtr& database, OdGePoint2d a, OdGePoint2d b, bool crossing,
               std::vector<OdDbObjectId>& ids) override;
    void inPolygon(const OdDbDatabasePtr& database, const std::vector<OdGePoint2d>& corners, bool crossing,
                   std::vector<OdDbObjectId>& ids) override;
    void alongFence(const OdDbDatabasePtr& database, const std::vector<OdGePoint2d>& points,
                    std::vector<OdDbObjectId>& ids) override;

  private:
    DrawingScenes& m_scenes;
};
