#include "Services/Share/Export/VisitExport.h"

#include "Core/Support/Texts/PrintableText.h"
#include "Services/Share/Export/VisitCsv.h"
#include "Services/Share/Export/VisitGeoJson.h"
#include "Services/Share/Export/VisitJson.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel::VisitExport {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype pieceBytes = 65'536;

/// The text that a format puts around its records.
struct Frame
{
    QByteArray head;
    QByteArray separator;
    QByteArray tail;
    QByteArray (*record)(const CheckIn &);
};

QByteArray jsonRecord(const CheckIn &visit)
{
    return PrintableText::json(VisitJson::visit(visit));
}

QByteArray geoJsonRecord(const CheckIn &visit)
{
    return PrintableText::json(VisitGeoJson::feature(visit));
}

Frame frameOf(Format format)
{
    switch (format) {
    case Format::Json:
        return {"{\"version\":1,\"visits\":[\n", ",\n", "\n]}\n", &jsonRecord};
    case Format::Csv:
        return {VisitCsv::header(), {}, {}, &VisitCsv::row};
    case Format::GeoJson:
        return {"{\"type\":\"FeatureCollection\",\"features\":[\n", ",\n", "\n]}\n",
                &geoJsonRecord};
    }
    Q_UNREACHABLE();
}

} // namespace

std::optional<Format> formatNamed(QStringView name)
{
    if (name == "json"_L1)
        return Format::Json;
    if (name == "csv"_L1)
        return Format::Csv;
    if (name == "geojson"_L1)
        return Format::GeoJson;
    return std::nullopt;
}

void write(const std::vector<std::shared_ptr<CheckIn>> &visits, Format format, const Sink &sink)
{
    const Frame frame = frameOf(format);
    QByteArray piece = frame.head;
    bool isFirst = true;
    for (const auto &visit : visits) {
        if (!std::exchange(isFirst, false))
            piece += frame.separator;
        piece += frame.record(*visit);
        if (piece.size() >= pieceBytes) {
            sink(piece);
            piece.clear();
        }
    }
    piece += frame.tail;
    sink(piece);
}

} // namespace quorvel::VisitExport
