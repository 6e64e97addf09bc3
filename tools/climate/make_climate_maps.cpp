// make_climate_maps: draws the location screen's maps from public boundary
// data, with the stations of the climate database as dots.
//
//   make_climate_maps <stations.csv> <countries-50m.json> <states-10m.json> <weather folder>
//
// The boundaries are TopoJSON files: the Natural Earth admin-0 countries of
// the npm package world-atlas and the US Census Bureau state boundaries of the
// npm package us-atlas. They are read at generation time only; the program
// ships the pictures. The projection is equirectangular with the longitude
// scaled by the cosine of the frame's middle latitude (plate carree), which
// keeps a country's shape recognisable at these scales.
//
// Writes Region1/USA.jpg (the 48 contiguous states with insets for Alaska and
// Hawaii), Region2/Canada.jpg, Region<n>/<country>.jpg for the groups of
// regions 3 to 8, and World.jpg with every station coloured by region.
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <map>
#include <vector>

#include "core/text_file.h"
#include "tools/climate/climate_db_builder.h"

namespace fs = std::filesystem;
using solvane::climate_tools::StationRow;

namespace {

using Ring = std::vector<QPointF>;  // lon, lat
struct Feature {
    QString name;
    std::vector<Ring> rings;  // outer rings and holes alike, drawn even-odd
    QRectF bounds;            // lon/lat box
};

// Decodes the quantised, delta-encoded arcs of a TopoJSON topology and the
// polygons of one of its geometry collections.
std::vector<Feature> ReadTopology(const QString& path, const QString& object) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path.toStdString());
    const QJsonObject topo = QJsonDocument::fromJson(file.readAll()).object();
    const QJsonArray scale = topo["transform"].toObject()["scale"].toArray();
    const QJsonArray translate = topo["transform"].toObject()["translate"].toArray();
    const double sx = scale[0].toDouble(), sy = scale[1].toDouble();
    const double tx = translate[0].toDouble(), ty = translate[1].toDouble();
    std::vector<Ring> arcs;
    for (const QJsonValue& a : topo["arcs"].toArray()) {
        Ring arc;
        double x = 0, y = 0;
        for (const QJsonValue& p : a.toArray()) {
            x += p.toArray()[0].toDouble();
            y += p.toArray()[1].toDouble();
            arc.emplace_back(x * sx + tx, y * sy + ty);
        }
        arcs.push_back(std::move(arc));
    }
    auto ringOf = [&](const QJsonArray& indices) {
        Ring ring;
        for (const QJsonValue& v : indices) {
            const int i = v.toInt();
            Ring arc = arcs[static_cast<std::size_t>(i >= 0 ? i : ~i)];
            if (i < 0) std::reverse(arc.begin(), arc.end());
            ring.insert(ring.end(), ring.empty() ? arc.begin() : arc.begin() + 1, arc.end());
        }
        // Rings that cross the 180th meridian jump by 360 degrees between two
        // points: unwrap them so that every edge is short.
        for (std::size_t i = 1; i < ring.size(); ++i) {
            const double jump = ring[i].x() - ring[i - 1].x();
            if (jump > 180) ring[i].rx() -= 360 * std::round(jump / 360);
            if (jump < -180) ring[i].rx() += 360 * std::round(-jump / 360);
        }
        return ring;
    };
    std::vector<Feature> features;
    for (const QJsonValue& g :
         topo["objects"].toObject()[object].toObject()["geometries"].toArray()) {
        const QJsonObject geo = g.toObject();
        Feature f;
        f.name = geo["properties"].toObject()["name"].toString();
        QJsonArray polygons;
        if (geo["type"].toString() == "Polygon")
            polygons.append(geo["arcs"].toArray());
        else if (geo["type"].toString() == "MultiPolygon")
            polygons = geo["arcs"].toArray();
        for (const QJsonValue& polygon : polygons)
            for (const QJsonValue& ring : polygon.toArray())
                f.rings.push_back(ringOf(ring.toArray()));
        for (const Ring& r : f.rings)
            for (const QPointF& p : r) f.bounds |= QRectF(p, QSizeF(1e-9, 1e-9));
        features.push_back(std::move(f));
    }
    return features;
}

bool Contains(const Feature& f, QPointF p) {
    if (!f.bounds.contains(p)) return false;
    bool inside = false;  // even-odd rule over all rings
    for (const Ring& r : f.rings) {
        for (std::size_t i = 0, j = r.size() - 1; i < r.size(); j = i++) {
            if ((r[i].y() > p.y()) != (r[j].y() > p.y()) &&
                p.x() <
                    (r[j].x() - r[i].x()) * (p.y() - r[i].y()) / (r[j].y() - r[i].y()) + r[i].x())
                inside = !inside;
        }
    }
    return inside;
}

const QColor kSea(198, 222, 240), kLand(236, 232, 218), kHome(255, 246, 196),
    kBorder(140, 130, 110);

QColor MarkerColour(const std::string& marker) {
    if (marker == "#") return QColor(20, 60, 200);
    if (marker == "*") return QColor(0, 140, 60);
    if (marker == "!") return QColor(230, 130, 0);
    return QColor(200, 20, 20);
}

// One frame of a picture: a lon/lat box drawn into a pixel rectangle.
struct Frame {
    QRectF geo;     // lon/lat box shown (x lon, y lat)
    QRectF pixels;  // where it goes
    QPointF Map(QPointF lonLat) const {
        return {pixels.left() + (lonLat.x() - geo.left()) / geo.width() * pixels.width(),
                pixels.top() + (geo.bottom() - lonLat.y()) / geo.height() * pixels.height()};
    }
};

// A lon/lat box around `box` that fills `pixels` at the true aspect of the
// middle latitude.
QRectF FitBox(QRectF box, const QRectF& pixels, double minSpan) {
    if (box.width() < minSpan)
        box.adjust(-(minSpan - box.width()) / 2, 0, (minSpan - box.width()) / 2, 0);
    if (box.height() < minSpan)
        box.adjust(0, -(minSpan - box.height()) / 2, 0, (minSpan - box.height()) / 2);
    box.adjust(-box.width() * 0.08, -box.height() * 0.08, box.width() * 0.08, box.height() * 0.08);
    const double k = std::max(0.2, std::cos(box.center().y() * M_PI / 180));
    const double wantAspect = pixels.width() / pixels.height();  // (dlon * k) / dlat
    const double aspect = box.width() * k / box.height();
    const QPointF c = box.center();
    if (aspect < wantAspect) {
        const double w = box.height() * wantAspect / k;
        box = QRectF(c.x() - w / 2, box.top(), w, box.height());
    } else {
        const double h = box.width() * k / wantAspect;
        box = QRectF(box.left(), c.y() - h / 2, box.width(), h);
    }
    return box;
}

void DrawFeatures(QPainter& p, const Frame& frame, const std::vector<Feature>& features,
                  const Feature* home, double lonShift) {
    p.save();
    p.setClipRect(frame.pixels);
    for (double shift : {lonShift - 360, lonShift, lonShift + 360}) {
        const QRectF view = frame.geo.translated(-shift, 0);
        for (const Feature& f : features) {
            if (!f.bounds.intersects(view)) continue;
            QPainterPath path;
            path.setFillRule(Qt::OddEvenFill);
            for (const Ring& r : f.rings) {
                if (r.empty()) continue;
                path.moveTo(frame.Map(r[0] + QPointF(shift, 0)));
                for (std::size_t i = 1; i < r.size(); ++i)
                    path.lineTo(frame.Map(r[i] + QPointF(shift, 0)));
                path.closeSubpath();
            }
            p.setPen(QPen(kBorder, 0.7));
            p.setBrush(&f == home ? kHome : kLand);
            p.drawPath(path);
        }
    }
    p.restore();
}

void DrawStations(QPainter& p, const Frame& frame, const std::vector<const StationRow*>& stations,
                  double lonShift, double radius) {
    p.save();
    p.setClipRect(frame.pixels);
    p.setPen(QPen(Qt::black, 0.4));
    for (const StationRow* s : stations) {
        double lon = s->lon;
        if (lon < frame.geo.left()) lon += 360;
        if (lon > frame.geo.right()) lon -= 360;
        (void)lonShift;
        p.setBrush(MarkerColour(s->marker));
        p.drawEllipse(frame.Map({lon, s->lat}), radius, radius);
    }
    p.restore();
}

void Save(const QImage& image, const fs::path& path) {
    fs::create_directories(path.parent_path());
    if (!image.save(QString::fromStdString(path.string()), "JPG", 82))
        throw std::runtime_error("cannot write " + path.string());
}

QImage Blank(int w, int h) {
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(kSea);
    return image;
}

// The country (or state) holding the most of the stations.
const Feature* HomeFeature(const std::vector<Feature>& features,
                           const std::vector<const StationRow*>& stations) {
    std::map<const Feature*, int> votes;
    for (const StationRow* s : stations)
        for (const Feature& f : features)
            if (Contains(f, {s->lon, s->lat})) {
                ++votes[&f];
                break;
            }
    const Feature* best = nullptr;
    int most = 0;
    for (const auto& [f, n] : votes)
        if (n > most) best = f, most = n;
    return best;
}

void GroupMap(const std::vector<Feature>& world, const std::vector<const StationRow*>& stations,
              const fs::path& out) {
    // Groups that straddle the 180th meridian are drawn east of it.
    double minLon = 180, maxLon = -180;
    for (const StationRow* s : stations)
        minLon = std::min(minLon, s->lon), maxLon = std::max(maxLon, s->lon);
    const bool wrap = maxLon - minLon > 180;
    QRectF box;
    for (const StationRow* s : stations) {
        const double lon = wrap && s->lon < 0 ? s->lon + 360 : s->lon;
        box |= QRectF(QPointF(lon, s->lat), QSizeF(1e-6, 1e-6));
    }
    QImage image = Blank(640, 480);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF pixels(0, 0, 640, 480);
    const Frame frame{FitBox(box, pixels, 4.0), pixels};
    DrawFeatures(p, frame, world, HomeFeature(world, stations), 0);
    DrawStations(p, frame, stations, 0, stations.size() > 400 ? 2.2 : 3.2);
    p.end();
    Save(image, out);
}

void UsaMap(const std::vector<Feature>& world, const std::vector<Feature>& states,
            const std::vector<const StationRow*>& stations, const fs::path& out) {
    QImage image = Blank(800, 520);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF mainPixels(0, 0, 800, 520);
    const Frame main{FitBox(QRectF(QPointF(-124.8, 24.4), QPointF(-66.9, 49.4)), mainPixels, 4),
                     mainPixels};
    const QRectF akPixels(8, 372, 200, 140), hiPixels(216, 432, 130, 80);
    const Frame alaska{FitBox(QRectF(QPointF(-168, 54), QPointF(-130, 71.5)), akPixels, 4),
                       akPixels};
    const Frame hawaii{FitBox(QRectF(QPointF(-160.3, 18.9), QPointF(-154.8, 22.3)), hiPixels, 2),
                       hiPixels};
    for (const Frame* f : {&main, &alaska, &hawaii}) {
        if (f != &main) {
            p.fillRect(f->pixels, kSea);
            p.setPen(QPen(kBorder, 1));
            p.drawRect(f->pixels);
        }
        DrawFeatures(p, *f, world, nullptr, 0);
        DrawFeatures(p, *f, states, nullptr, 0);
    }
    // US states are all "home": draw them again in the highlight colour.
    for (const Frame* f : {&main, &alaska, &hawaii}) {
        p.save();
        p.setClipRect(f->pixels);
        for (const Feature& s : states) {
            QPainterPath path;
            path.setFillRule(Qt::OddEvenFill);
            for (const Ring& r : s.rings) {
                path.moveTo(f->Map(r[0]));
                for (std::size_t i = 1; i < r.size(); ++i) path.lineTo(f->Map(r[i]));
                path.closeSubpath();
            }
            p.setPen(QPen(kBorder, 0.7));
            p.setBrush(kHome);
            p.drawPath(path);
        }
        p.restore();
        DrawStations(p, *f, stations, 0, 1.8);
    }
    p.end();
    Save(image, out);
}

void WorldMap(const std::vector<Feature>& world, const std::vector<StationRow>& rows,
              const fs::path& out) {
    QImage image = Blank(1000, 500);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const Frame frame{QRectF(-180, -90, 360, 180), QRectF(0, 0, 1000, 500)};
    DrawFeatures(p, frame, world, nullptr, 0);
    const QColor regionColour[] = {{},           {200, 20, 20}, {230, 130, 0}, {150, 90, 30},
                                   {0, 140, 60}, {20, 60, 200}, {150, 0, 150}, {0, 150, 160},
                                   {90, 90, 90}};
    p.setPen(Qt::NoPen);
    for (const StationRow& s : rows) {
        p.setBrush(regionColour[s.region]);
        p.drawEllipse(frame.Map({s.lon, s.lat}), 1.1, 1.1);
    }
    p.end();
    Save(image, out);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr
            << "usage: make_climate_maps <stations.csv> <countries-50m.json> <states-10m.json> "
               "<weather folder>\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    try {
        const auto csv = solvane::ReadTextFile(argv[1]);
        if (!csv) throw std::runtime_error(std::string("cannot read ") + argv[1]);
        const std::vector<StationRow> rows =
            solvane::climate_tools::ParseStationTable(*csv, argv[1]);
        const std::vector<Feature> world = ReadTopology(argv[2], "countries");
        const std::vector<Feature> states = ReadTopology(argv[3], "states");
        const fs::path out = argv[4];

        std::map<std::pair<int, std::string>, std::vector<const StationRow*>> groups;
        std::vector<const StationRow*> usa, canada;
        for (const StationRow& r : rows) {
            if (r.region == 1)
                usa.push_back(&r);
            else if (r.region == 2)
                canada.push_back(&r);
            else
                groups[{r.region, r.groupName}].push_back(&r);
        }
        UsaMap(world, states, usa, out / "Region1" / "USA.jpg");
        GroupMap(world, canada, out / "Region2" / "Canada.jpg");
        for (const auto& [key, stations] : groups)
            GroupMap(world, stations,
                     out / ("Region" + std::to_string(key.first)) / (key.second + ".jpg"));
        WorldMap(world, rows, out / "World.jpg");
        std::cout << groups.size() + 3 << " maps written to " << out.string() << "\n";
    } catch (const std::exception& e) {
        std::cerr << "make_climate_maps: " << e.what() << "\n";
        return 1;
    }
    return 0;
}
