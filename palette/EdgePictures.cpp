#include "palette/Catalogue.h"

namespace morvane {
namespace {

constexpr Size kWall = {4, 22};
constexpr Size kFence = {4, 24};
constexpr Size kDoor = {6, 16};
constexpr auto kVertical = Direction::Vertical;
constexpr auto kHorizontal = Direction::Horizontal;

constexpr Size Turned(Size size) {
  return {size.height, size.width};
}

constexpr std::array<EdgePicture, kEdgePictureCount> kEdgePictures = {{
    {"pbwallvertical", 0, Edge::Wall, kVertical, kWall},
    {"pbwallhorizontal", 0, Edge::Wall, kHorizontal, Turned(kWall)},
    {"pbdoorvertical", 0, Edge::Door, kVertical, kDoor},
    {"pbdoorhorizontal", 0, Edge::Door, kHorizontal, Turned(kDoor)},
    {"pbsecretvertical", 0, Edge::SecretDoor, kVertical, kDoor},
    {"pbsecrethorizontal", 0, Edge::SecretDoor, kHorizontal, Turned(kDoor)},
    {"pgwallvertical", 1, Edge::Wall, kVertical, kWall},
    {"pgwallhorizontal", 1, Edge::Wall, kHorizontal, Turned(kWall)},
    {"pgdoorvertical", 1, Edge::Door, kVertical, kDoor},
    {"pgdoorhorizontal", 1, Edge::Door, kHorizontal, Turned(kDoor)},
    {"pgsecretvertical", 1, Edge::SecretDoor, kVertical, kDoor},
    {"pgsecrethorizontal", 1, Edge::SecretDoor, kHorizontal, Turned(kDoor)},
    {"ptwallvertical", 2, Edge::Wall, kVertical, kWall},
    {"ptwallhorizontal", 2, Edge::Wall, kHorizontal, Turned(kWall)},
    {"ptdoorvertical", 2, Edge::Door, kVertical, kDoor},
    {"ptdoorhorizontal", 2, Edge::Door, kHorizontal, Turned(kDoor)},
    {"ptsecretvertical", 2, Edge::SecretDoor, kVertical, kDoor},
    {"ptsecrethorizontal", 2, Edge::SecretDoor, kHorizontal, Turned(kDoor)},
    {"pvwallvertical", 3, Edge::Wall, kVertical, kFence},
    {"pvwallhorizontal", 3, Edge::Wall, kHorizontal, Turned(kFence)},
    {"pvdoorvertical", 3, Edge::Door, kVertical, kDoor},
    {"pvdoorhorizontal", 3, Edge::Door, kHorizontal, Turned(kDoor)},
}};

}  // namespace

const std::array<EdgePicture, kEdgePictureCount>& EdgePictures() {
  return kEdgePictures;
}

}  // namespace morvane
