// Writes the drawing that is read and saved: entities of many types, as a plan has them.
#include <array>
#include <cstdio>
#include <fstream>
#include <stdexcept>

#include "drawings.h"
#include "host/dxf/load/load_drawing.h"
#include "host/dxf/save/save_drawing.h"
#include "host/tags/tags.h"

namespace bench {
namespace {

using host::addPointTag;
using host::addTag;

constexpr const char* kApplication = "BENCH";
constexpr const char* kBlock = "PART";
constexpr std::array<const char*, 3> kLayers = {"WALLS", "PIPES", "NOTES"};

void addRecord(std::string& text, const char* type, const char* name) {
    const bool isLayer = type == std::string("LAYER");
    addTag(text, 0, type);
    addTag(text, 100, "AcDbSymbolTableRecord");
    addTag(text, 100, isLayer ? "AcDbLayerTableRecord" : "AcDbRegAppTableRecord");
    addTag(text, 2, name);
    addTag(text, 70, 0);
    if (!isLayer) return;
    addTag(text, 62, 7);
    addTag(text, 6, "Continuous");
}

void addTables(std::string& text) {
    for (const char* table : {"LAYER", "APPID"}) {
        addTag(text, 0, "TABLE");
        addTag(text, 2, table);
        addTag(text, 100, "AcDbSymbolTable");
        if (table == std::string("APPID")) addRecord(text, table, kApplication);
        if (table == std::string("LAYER"))
            for (const char* layer : kLayers)
                addRecord(text, table, layer);
        addTag(text, 0, "ENDTAB");
    }
}

/// Writes one entity after the other, each somewhere else.
class EntityWriter {
  public:
    explicit EntityWriter(std::string& text) : m_text(text) {}

    void add(long number) {
        m_x = static_cast<double>(number % 1000) + 0.25;
        m_y = static_cast<double>(number / 1000) + 0.5;
        m_layer = kLayers[number % kLayers.size()];
        switch (number % 20) {
            case 0:
            case 1:
                return addCircle();
            case 2:
            case 3:
                return addArc();
            case 4:
                return addPolyline();
            case 5:
                return addText();
            case 6:
            case 7:
                return addReference();
            case 8:
                return addPoint();
            default:
                return addLine();
        }
    }
    void begin(const char* type, const char* subclass) {
        addTag(m_text, 0, type);
        addTag(m_text, 100, "AcDbEntity");
        addTag(m_text, 8, m_layer);
        addTag(m_text, 100, subclass);
    }
    void addCircle() {
        begin("CIRCLE", "AcDbCircle");
        addPointTag(m_text, 10, m_x, m_y, 0);
        addTag(m_text, 40, 0.5);
    }
    /// Extended data, which every tenth entity has.
    void addData(long number) {
        addTag(m_text, 1001, kApplication);
        addTag(m_text, 1000, "part " + std::to_string(number));
        addTag(m_text, 1040, m_x);
    }

  private:
    void addArc() {
        addCircle();
        m_text.replace(m_text.rfind("CIRCLE"), 6, "ARC");
        addTag(m_text, 100, "AcDbArc");
        addTag(m_text, 50, 30.0);
        addTag(m_text, 51, 120.0);
    }
    void addPolyline() {
        begin("LWPOLYLINE", "AcDbPolyline");
        addTag(m_text, 90, 3);
        addTag(m_text, 70, 1);
        for (const double step : {0.0, 0.25, 0.5}) {
            addTag(m_text, 10, m_x + step);
            addTag(m_text, 20, m_y + step * step);
        }
    }
    void addText() {
        begin("TEXT", "AcDbText");
        addPointTag(m_text, 10, m_x, m_y, 0);
        addTag(m_text, 40, 0.25);
        addTag(m_text, 1, "room " + std::to_string(static_cast<int>(m_y)));
        addTag(m_text, 100, "AcDbText");
    }
    void addReference() {
        begin("INSERT", "AcDbBlockReference");
        addTag(m_text, 2, kBlock);
        addPointTag(m_text, 10, m_x, m_y, 0);
    }
    void addPoint() {
        begin("POINT", "AcDbPoint");
        addPointTag(m_text, 10, m_x, m_y, 0);
    }
    void addLine() {
        begin("LINE", "AcDbLine");
        addPointTag(m_text, 10, m_x, m_y, 0);
        addPointTag(m_text, 11, m_x + 0.5, m_y, 0);
    }

    std::string& m_text;
    double m_x = 0;
    double m_y = 0;
    const char* m_layer = "0";
};

void addBlocks(std::string& text) {
    addTag(text, 0, "BLOCK");
    addTag(text, 100, "AcDbEntity");
    addTag(text, 8, "0");
    addTag(text, 100, "AcDbBlockBegin");
    addTag(text, 2, kBlock);
    addTag(text, 70, 0);
    addPointTag(text, 10, 0, 0, 0);
    EntityWriter(text).addCircle();
    addTag(text, 0, "ENDBLK");
    addTag(text, 100, "AcDbEntity");
    addTag(text, 8, "0");
    addTag(text, 100, "AcDbBlockEnd");
}

template <typename Content>
void addSection(std::string& text, const char* name, const Content& content) {
    addTag(text, 0, "SECTION");
    addTag(text, 2, name);
    content(text);
    addTag(text, 0, "ENDSEC");
}

std::string mixedDrawing(long count) {
    std::string text;
    addSection(text, "HEADER", [](std::string& header) {
        addTag(header, 9, "$ACADVER");
        addTag(header, 1, "AC1027");
    });
    addSection(text, "TABLES", addTables);
    addSection(text, "BLOCKS", addBlocks);
    addSection(text, "ENTITIES", [count](std::string& entities) {
        EntityWriter writer(entities);
        for (long number = 0; number < count; ++number) {
            writer.add(number);
            if (number % 10 == 0) writer.addData(number);
        }
    });
    addTag(text, 0, "EOF");
    return text;
}

}  // namespace

void writeMixedDrawing(const std::string& path, long count) {
    std::ofstream(path) << mixedDrawing(count);
    // Loading supplies handles and all the structure that a drawing has.
    host::DxfError error;
    const auto store = host::loadDrawing(path, error);
    if (store == nullptr || !host::saveDrawing(*store, path, error))
        throw std::runtime_error(path + ": " + error.text);
    std::remove(host::backupPath(path).c_str());
}

}  // namespace bench
