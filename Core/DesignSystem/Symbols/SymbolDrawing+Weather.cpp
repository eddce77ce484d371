#include "Core/DesignSystem/Symbols/SymbolFamily.h"

#include <QLineF>
#include <QPainter>
#include <QPointF>
#include <QTransform>

#include <cmath>
#include <initializer_list>
#include <numbers>

using namespace Qt::StringLiterals;

namespace quorvel::SymbolDrawing {
namespace {

constexpr QPointF upperRight(0.5, -0.42);

QPointF around(const QPointF &centre, double radius, double degrees)
{
    const double angle = degrees * std::numbers::pi / 180;
    return centre + QPointF(std::cos(angle), std::sin(angle)) * radius;
}

QPainterPath cloud(const QPointF &offset, double scale)
{
    QPainterPath path = circle({6.75, 14.25}, 4.75);
    path = path.united(circle({12.5, 11.25}, 6.25));
    path = path.united(circle({18, 14.75}, 4.25));
    path = path.united(roundedRectangle({6.75, 12, 11.25, 7}, 0.5));
    return QTransform(scale, 0, 0, scale, offset.x(), offset.y()).map(path.simplified());
}

/// Leaves room for the rain or snow below it.
QPainterPath highCloud()
{
    return cloud({1.2, -2.6}, 0.9);
}

QPainterPath frontCloud()
{
    return cloud({0, 5.6}, 0.8);
}

/// `shadeAt` is the position of the dark part, in radii from the centre.
QPainterPath crescent(const QPointF &centre, double radius, const QPointF &shadeAt)
{
    const QPainterPath shade = circle(centre + shadeAt * radius, 0.8 * radius);
    return circle(centre, radius).subtracted(shade);
}

QPainterPath sparkle(const QPointF &centre, double radius)
{
    QPainterPath path(around(centre, radius, 0));
    for (const double degrees : {90.0, 180.0, 270.0, 360.0})
        path.quadTo(centre, around(centre, radius, degrees));
    return path;
}

void drawSunAt(QPainter &painter, const QPointF &centre, double radius)
{
    painter.drawPath(circle(centre, radius));
    for (int degrees = 0; degrees < 360; degrees += 45)
        painter.drawLine(around(centre, radius + 2.8, degrees),
                         around(centre, radius + 4.9, degrees));
}

void drawFalling(QPainter &painter, std::initializer_list<QLineF> drops)
{
    painter.drawPath(highCloud());
    for (const QLineF &drop : drops)
        painter.drawLine(drop);
}

void drawSun(QPainter &painter)
{
    drawSunAt(painter, {12, 12}, 4.5);
}

void drawMoon(QPainter &painter)
{
    painter.drawPath(crescent({11.5, 12.5}, 9.25, upperRight));
}

void drawMoonAndStarsFilled(QPainter &painter)
{
    fill(painter, crescent({10.5, 13.5}, 8.25, upperRight));
    painter.fillPath(sparkle({17, 6.5}, 4.25), painter.pen().color());
    painter.fillPath(sparkle({20.25, 13}, 2.5), painter.pen().color());
}

void drawCloud(QPainter &painter)
{
    painter.drawPath(cloud({0, 0}, 1));
}

void drawCloudAndSun(QPainter &painter)
{
    drawSunAt(painter, {14.4, 9.4}, 2.9);
    clear(painter, frontCloud());
    painter.drawPath(frontCloud());
}

void drawCloudAndMoon(QPainter &painter)
{
    painter.drawPath(crescent({15.75, 8.25}, 6.25, {-0.6, -0.2}));
    clear(painter, frontCloud());
    painter.drawPath(frontCloud());
}

void drawCloudAndFog(QPainter &painter)
{
    drawFalling(painter, {{5.5, 18.25, 18.5, 18.25}, {8, 21.5, 16, 21.5}});
}

void drawDrizzle(QPainter &painter)
{
    drawFalling(painter,
                {{7.5, 18, 7.25, 18.75}, {12, 20.5, 11.75, 21.25}, {16.5, 18, 16.25, 18.75}});
}

void drawRain(QPainter &painter)
{
    drawFalling(painter,
                {{8.25, 18, 6.75, 21.75}, {12.75, 18, 11.25, 21.75}, {17.25, 18, 15.75, 21.75}});
}

void drawSnowing(QPainter &painter)
{
    painter.drawPath(highCloud());
    for (const QPointF &flake : {QPointF(7, 18.5), {12, 21.25}, {17, 18.5}})
        dot(painter, flake, 1.5);
}

void drawThunderstorm(QPainter &painter)
{
    drawFalling(painter, {{6.75, 18, 5.25, 21.75}, {18.75, 18, 17.25, 21.75}});
    painter.drawPath(line({{13, 16.75}, {10.5, 19.5}, {13.5, 19.5}, {11.25, 22}}));
}

void drawSnowflake(QPainter &painter)
{
    const QPointF centre(12, 12);
    for (int degrees = 30; degrees < 390; degrees += 60) {
        painter.drawLine(centre, around(centre, 10, degrees));
        const QPointF fork = around(centre, 6, degrees);
        painter.drawPath(line(
            {fork + around({}, 3.25, degrees + 50), fork, fork + around({}, 3.25, degrees - 50)}));
    }
}

} // namespace

SymbolFamily weatherFamily()
{
    return {
        {u"sun.max"_s, drawSun},
        {u"moon"_s, drawMoon},
        {u"moon.stars.fill"_s, drawMoonAndStarsFilled},
        {u"cloud"_s, drawCloud},
        {u"cloud.sun"_s, drawCloudAndSun},
        {u"cloud.moon"_s, drawCloudAndMoon},
        {u"cloud.fog"_s, drawCloudAndFog},
        {u"cloud.drizzle"_s, drawDrizzle},
        {u"cloud.rain"_s, drawRain},
        {u"cloud.snow"_s, drawSnowing},
        {u"cloud.bolt.rain"_s, drawThunderstorm},
        {u"snowflake"_s, drawSnowflake},
    };
}

} // namespace quorvel::SymbolDrawing
