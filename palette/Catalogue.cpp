#include "palette/Catalogue.h"

#include <algorithm>

namespace morvane {
namespace {

constexpr std::array<Page, kMaxPages> kDungeonPages = {
    {{"Tiles", "tiles"}, {"Furniture", "furniture"}, {"Various", "various"}}};
constexpr std::array<Page, kMaxPages> kTsrPages = {{{"Tiles", "tiles"}, {}, {}}};
constexpr std::array<Page, kMaxPages> kVillagePages = {
    {{"Tiles", "tiles"}, {"Buildings", "buildings"}, {"Various", "various"}}};

constexpr std::array<TileSet, kBuiltInSets> kTileSets = {{
    {"Abandoned Cathedral", "abandoned-cathedral", "TabStrip1", "Frame1", 3, kDungeonPages},
    {"Grave Dungeon", "grave-dungeon", "TabStrip3", "Frame3", 3, kDungeonPages},
    {"TSR Original", "tsr-original", "TabStrip2", "Frame2", 1, kTsrPages},
    {"Classic Village", "classic-village", "TabStrip4", "Frame4", 3, kVillagePages},
}};

constexpr std::array<Item, kItemCount> kItems = {{
    // control, caption, set, page, column, row, stored size
    // Abandoned Cathedral, "Tiles"
    {"pbfloor", "Floor", 0, 1, 0, 0, {20, 20}},
    {"pbmarking", "Marking", 0, 1, 1, 0, {20, 20}},
    {"pbpressureplate", "Pressure Plate", 0, 1, 2, 0, {20, 20}},
    {"pbspikepit", "Spike Pit", 0, 1, 3, 0, {20, 20}},
    {"pbtrapdoor", "Trapdoor", 0, 1, 4, 0, {20, 20}},
    {"pbirongrate", "Iron Grate", 0, 1, 5, 0, {20, 20}},
    {"pb4040", "Big Floor", 0, 1, 0, 1, {40, 40}},
    {"pbcurtain", "Curtain", 0, 1, 2, 1, {20, 20}},
    {"pbsmallfountain", "Small Fountain", 0, 1, 3, 1, {20, 20}},
    {"pbbassin", "Bassin", 0, 1, 4, 1, {40, 20}},
    {"pbjailbars", "Jailbars", 0, 1, 2, 2, {20, 20}},
    {"pbpillar", "Pillar", 0, 1, 3, 2, {20, 20}},
    {"pbrubble1", "Rubble 1", 0, 1, 4, 2, {40, 20}},
    {"pbstraightstairs", "Straight Stairs", 0, 1, 0, 3, {40, 20}},
    {"pbportal", "Portal", 0, 1, 2, 3, {40, 20}},
    {"pbrubble2", "Rubble 2", 0, 1, 4, 3, {40, 20}},
    {"pbstairsdown", "Stairs Down", 0, 1, 0, 4, {40, 40}},
    {"pbstairsup", "Stairs Up", 0, 1, 2, 4, {40, 40}},
    {"pbrubble3", "Rubble 3", 0, 1, 4, 4, {40, 40}},
    // Abandoned Cathedral, "Furniture"
    {"pbroundtable", "Round Table", 0, 2, 0, 0, {40, 40}},
    {"pbsquaretable", "Square Table", 0, 2, 2, 0, {40, 40}},
    {"pbbenchtable", "Bench Table", 0, 2, 4, 0, {40, 40}},
    {"pbwoodendesk", "Wooden Desk", 0, 2, 0, 2, {40, 40}},
    {"pbcrates", "Crates", 0, 2, 2, 2, {40, 40}},
    {"pbwoodenbench", "Wooden Bench", 0, 2, 4, 2, {40, 20}},
    {"pbbed", "Bed", 0, 2, 4, 3, {40, 20}},
    {"pbcloset", "Closet", 0, 2, 0, 4, {20, 40}},
    {"pbbookstand", "Bookstand", 0, 2, 1, 4, {20, 20}},
    {"pbchest", "Chest", 0, 2, 2, 4, {20, 20}},
    {"pbbarrel", "Barrel", 0, 2, 3, 4, {20, 20}},
    {"pbrackedbarrels", "Racked Barrels", 0, 2, 4, 4, {40, 20}},
    {"pbredchair", "Red Chair", 0, 2, 1, 5, {20, 20}},
    {"pbredcouch", "Red Couch", 0, 2, 2, 5, {40, 20}},
    {"pbfireplace", "Fireplace", 0, 2, 4, 5, {40, 20}},
    // Abandoned Cathedral, "Various"
    {"pbpentagram", "Pentagram", 0, 3, 0, 0, {40, 40}},
    {"pbpentagramglow", "Glowing Pentagram", 0, 3, 2, 0, {40, 40}},
    {"pbcoffin", "Coffin 1", 0, 3, 4, 0, {20, 40}},
    {"pbcoffin2", "Coffin 2", 0, 3, 5, 0, {20, 40}},
    {"pbaltar", "Altar 1", 0, 3, 0, 2, {40, 40}},
    {"pbaltar2", "Altar 2", 0, 3, 2, 2, {40, 40}},
    {"pbrug", "Rug", 0, 3, 4, 2, {40, 40}},
    {"pbskeleton", "Skeleton", 0, 3, 0, 4, {40, 40}},
    {"pbbloodyskeleton", "Bloody Skeleton", 0, 3, 2, 4, {40, 40}},
    {"pbbloodstain1", "Bloodstain 1", 0, 3, 4, 4, {20, 20}},
    {"pbblood1", "Blood 1", 0, 3, 5, 4, {20, 20}},
    {"pbbloodstain2", "Bloodstain 2", 0, 3, 4, 5, {20, 20}},
    {"pbblood2", "Blood 2", 0, 3, 5, 5, {20, 20}},
    {"pbgreenslime1", "Green Slime 1", 0, 3, 0, 6, {20, 20}},
    {"pbgreenslime2", "Green Slime 2", 0, 3, 1, 6, {20, 20}},
    {"pbgreenslime3", "Green Slime 3", 0, 3, 2, 6, {20, 20}},
    {"pbtreasure", "Treasure", 0, 3, 3, 6, {20, 20}},
    {"pbbloodstain3", "Bloodstain 3", 0, 3, 4, 6, {20, 20}},
    {"pbblood3", "Blood 3", 0, 3, 5, 6, {20, 20}},
    // Grave Dungeon, "Tiles"
    {"pgfloor", "Floor", 1, 1, 0, 0, {20, 20}},
    {"pgtorch", "Torch", 1, 1, 1, 0, {20, 20}},
    {"pgpressureplate", "Pressure Plate", 1, 1, 2, 0, {20, 20}},
    {"pgspikepit", "Spike Pit", 1, 1, 3, 0, {20, 20}},
    {"pgtrapdoor", "Trapdoor", 1, 1, 4, 0, {20, 20}},
    {"pgirongrate", "Iron Grate", 1, 1, 5, 0, {20, 20}},
    {"pg4040", "Big Floor", 1, 1, 0, 1, {40, 40}},
    {"pgcurtain", "Curtain", 1, 1, 2, 1, {20, 20}},
    {"pgsmallfountain", "Small Fountain", 1, 1, 3, 1, {20, 20}},
    {"pgbassin", "Bassin", 1, 1, 4, 1, {40, 20}},
    {"pgjailbars", "Jailbars", 1, 1, 2, 2, {20, 20}},
    {"pgpillar", "Pillar", 1, 1, 3, 2, {20, 20}},
    {"pgpit", "Pit", 1, 1, 4, 2, {40, 40}},
    {"pgstraightstairs", "Straight Stairs", 1, 1, 0, 3, {40, 20}},
    {"pgportal", "Portal", 1, 1, 2, 3, {40, 20}},
    {"pgstairsdown", "Stairs Down", 1, 1, 0, 4, {40, 40}},
    {"pgstairsup", "Stairs Up", 1, 1, 2, 4, {40, 40}},
    {"pgrubble", "Rubble", 1, 1, 4, 4, {40, 40}},
    // Grave Dungeon, "Furniture"
    {"pgroundtable", "Round Table", 1, 2, 0, 0, {40, 40}},
    {"pgsquaretable", "Square Table", 1, 2, 2, 0, {40, 40}},
    {"pgbenchtable", "Bench Table", 1, 2, 4, 0, {40, 40}},
    {"pgdesk", "Wooden Desk", 1, 2, 0, 2, {40, 40}},
    {"pgcrates", "Crates", 1, 2, 2, 2, {40, 40}},
    {"pgwoodenbench", "Wooden Bench", 1, 2, 4, 2, {40, 20}},
    {"pgburnedbench", "Burned Bench", 1, 2, 4, 3, {40, 20}},
    {"pgcloset", "Closet", 1, 2, 0, 4, {20, 40}},
    {"pgchest", "Chest", 1, 2, 1, 4, {20, 20}},
    {"pgbookstand", "Bookstand", 1, 2, 2, 4, {20, 20}},
    {"pgbarrel", "Barrel", 1, 2, 3, 4, {20, 20}},
    {"pgrackedbarrels", "Racked Barrels", 1, 2, 4, 4, {40, 20}},
    {"pgburnedchest", "Burned Chest", 1, 2, 1, 5, {20, 20}},
    {"pgtorturetable", "Torture Table", 1, 2, 2, 5, {40, 20}},
    {"pgbed", "Bed", 1, 2, 4, 5, {40, 20}},
    // Grave Dungeon, "Various"
    {"pgpentagram", "Pentagram", 1, 3, 0, 0, {40, 40}},
    {"pgsarcophagus", "Sarcophagus", 1, 3, 2, 0, {20, 40}},
    {"pgtomb", "Tomb", 1, 3, 3, 0, {20, 40}},
    {"pgcoffin", "Coffin", 1, 3, 4, 0, {20, 40}},
    {"pgcoffin2", "Coffin 2", 1, 3, 5, 0, {20, 40}},
    {"pgspiderweb", "Spiderweb", 1, 3, 0, 2, {40, 40}},
    {"pgcocoon", "Cocoon", 1, 3, 2, 2, {40, 40}},
    {"pgdarkness", "Darkness", 1, 3, 4, 2, {40, 40}},
    {"pgskeleton", "Skeleton", 1, 3, 0, 4, {40, 40}},
    {"pgexplodedskeleton", "Exploded Skeleton", 1, 3, 2, 4, {40, 40}},
    {"pgburn1", "Burn 1", 1, 3, 4, 4, {20, 20}},
    {"pgblood1", "Blood 1", 1, 3, 5, 4, {20, 20}},
    {"pgburn2", "Burn 2", 1, 3, 4, 5, {20, 20}},
    {"pgblood2", "Blood 2", 1, 3, 5, 5, {20, 20}},
    {"pgslime1", "Slime 1", 1, 3, 0, 6, {20, 20}},
    {"pgslime2", "Slime 2", 1, 3, 1, 6, {20, 20}},
    {"pgslime3", "Slime 3", 1, 3, 2, 6, {20, 20}},
    {"pgtreasure", "Treasure", 1, 3, 3, 6, {20, 20}},
    {"pgburn3", "Burn 3", 1, 3, 4, 6, {20, 20}},
    {"pgblood3", "Blood 3", 1, 3, 5, 6, {20, 20}},
    // TSR Original, "Tiles"
    {"ptelevationsquare", "Elevation Square", 2, 1, 0, 0, {20, 20}},
    {"ptelevationround", "Elevation Round", 2, 1, 1, 0, {20, 20}},
    {"ptpillar", "Pillar", 2, 1, 2, 0, {20, 20}},
    {"ptpittrapopen", "Pit Trap Open", 2, 1, 3, 0, {20, 20}},
    {"ptpittrapclosed", "Pit Trap Closed", 2, 1, 4, 0, {20, 20}},
    {"pttrap", "Trap", 2, 1, 5, 0, {20, 20}},
    {"ptroundstaircase", "Round Staircase", 2, 1, 0, 1, {40, 40}},
    {"ptstaircase", "Staircase", 2, 1, 2, 1, {40, 20}},
    {"ptladder", "Ladder", 2, 1, 4, 1, {20, 20}},
    {"ptstatue", "Statue", 2, 1, 5, 1, {20, 20}},
    {"ptfloorhatch", "Floor Hatch", 2, 1, 2, 2, {20, 20}},
    {"ptceilinghatch", "Ceiling Hatch", 2, 1, 3, 2, {20, 20}},
    {"ptsecrethatch", "Secret Hatch", 2, 1, 4, 2, {20, 20}},
    {"ptfountain", "Fountain", 2, 1, 5, 2, {20, 20}},
    {"ptpool", "Pool", 2, 1, 0, 3, {40, 40}},
    {"ptaltar", "Altar", 2, 1, 2, 3, {40, 20}},
    {"ptbassin", "Bassin", 2, 1, 4, 3, {40, 20}},
    {"ptdebris", "Debris", 2, 1, 2, 4, {40, 20}},
    {"ptbed", "Bed", 2, 1, 4, 4, {40, 20}},
    {"ptcrevasse", "Crevasse", 2, 1, 0, 5, {60, 20}},
    {"ptchest", "Chest", 2, 1, 3, 5, {20, 20}},
    {"pttable", "Table", 2, 1, 4, 5, {20, 20}},
    {"ptfireplace", "Fireplace", 2, 1, 5, 5, {20, 20}},
    // Classic Village, "Tiles"
    {"pvtiles-0", "Grass", 3, 1, 0, 0, {40, 40}},
    {"pvtiles-1", "Dirt", 3, 1, 2, 0, {40, 40}},
    {"pvtiles-2", "Road End", 3, 1, 0, 6, {40, 40}},
    {"pvtiles-3", "Crossroads", 3, 1, 2, 4, {40, 40}},
    {"pvtiles-4", "Junction", 3, 1, 2, 2, {40, 40}},
    {"pvtiles-5", "Road", 3, 1, 0, 2, {40, 40}},
    {"pvtiles-6", "Bend", 3, 1, 0, 4, {40, 40}},
    {"pvtiles-10", "Dirt Border", 3, 1, 2, 7, {40, 20}},
    {"pvtiles-11", "Dirt Corner", 3, 1, 4, 7, {20, 20}},
    {"pvtiles-12", "Dirt Corner Large", 3, 1, 5, 7, {20, 20}},
    {"pvtiles-13", "Water Border", 3, 1, 4, 6, {40, 20}},
    {"pvtiles-14", "Water Corner 1", 3, 1, 4, 4, {40, 40}},
    {"pvtiles-16", "Water Corner 2", 3, 1, 4, 2, {40, 40}},
    {"pvtiles-17", "Water", 3, 1, 4, 0, {40, 40}},
    {"pvtiles-18", "Dirt Border Road", 3, 1, 2, 6, {40, 20}},
    // Classic Village, "Buildings"
    {"pvbuildings-0", "Simple Hut", 3, 2, 0, 0, {40, 40}},
    {"pvbuildings-1", "Hut", 3, 2, 2, 0, {40, 40}},
    {"pvbuildings-2", "Simple House", 3, 2, 0, 2, {40, 40}},
    {"pvbuildings-3", "House", 3, 2, 2, 2, {40, 40}},
    {"pvbuildings-4", "Large House", 3, 2, 4, 2, {40, 40}},
    {"pvbuildings-5", "Large Villa", 3, 2, 0, 4, {60, 40}},
    {"pvbuildings-6", "Tower", 3, 2, 4, 0, {40, 40}},
    {"pvbuildings-7", "Shrine", 3, 2, 2, 6, {40, 40}},
    {"pvbuildings-8", "Crypt", 3, 2, 0, 6, {40, 40}},
    {"pvbuildings-9", "Ruins", 3, 2, 3, 4, {60, 40}},
    {"pvbuildings-10", "Small Cave", 3, 2, 4, 6, {40, 40}},
    // Classic Village, "Various"
    {"pvvarious-0", "Barrels", 3, 3, 0, 0, {20, 20}},
    {"pvvarious-1", "Crates", 3, 3, 1, 0, {20, 20}},
    {"pvvarious-2", "Rock 1", 3, 3, 2, 0, {20, 20}},
    {"pvvarious-3", "Rock 2", 3, 3, 3, 0, {20, 20}},
    {"pvvarious-4", "Grave", 3, 3, 3, 1, {20, 40}},
    {"pvvarious-5", "Sheep", 3, 3, 0, 1, {40, 40}},
    {"pvvarious-6", "Tree 1", 3, 3, 4, 1, {40, 40}},
    {"pvvarious-7", "Well", 3, 3, 0, 3, {40, 40}},
    {"pvvarious-8", "Rock Grave", 3, 3, 2, 1, {20, 40}},
    {"pvvarious-9", "Hedge", 3, 3, 0, 7, {20, 20}},
    {"pvvarious-10", "Tree 2", 3, 3, 4, 3, {40, 40}},
    {"pvvarious-11", "Pond", 3, 3, 2, 3, {40, 40}},
    {"pvvarious-12", "Forest", 3, 3, 4, 5, {40, 40}},
    {"pvvarious-13", "Purple Flowers", 3, 3, 4, 0, {20, 20}},
    {"pvvarious-14", "Red Flowers", 3, 3, 5, 0, {20, 20}},
    {"pvvarious-15", "Campfire", 3, 3, 4, 8, {20, 20}},
    {"pvvarious-16", "Burning Campfire", 3, 3, 5, 8, {20, 20}},
    {"pvvarious-17", "Shrub 1", 3, 3, 4, 7, {20, 20}},
    {"pvvarious-18", "Hedge Corner", 3, 3, 1, 7, {20, 20}},
    {"pvvarious-19", "Wall", 3, 3, 0, 5, {20, 20}},
    {"pvvarious-20", "Wall Corner", 3, 3, 1, 5, {20, 20}},
    {"pvvarious-21", "Wall Gate", 3, 3, 0, 6, {40, 20}},
    {"pvvarious-22", "Small Boat", 3, 3, 3, 8, {20, 20}},
    {"pvvarious-23", "Boat", 3, 3, 2, 7, {40, 20}},
    {"pvvarious-24", "Small Dock", 3, 3, 2, 5, {40, 40}},
    {"pvvarious-25", "Wheat", 3, 3, 0, 8, {20, 20}},
    {"pvvarious-26", "Wheat Border", 3, 3, 1, 8, {20, 20}},
    {"pvvarious-27", "Wheat Corner", 3, 3, 2, 8, {20, 20}},
    {"pvvarious-28", "Shrub 2", 3, 3, 5, 7, {20, 20}},
}};

}  // namespace

const std::array<TileSet, kBuiltInSets>& TileSets() {
  return kTileSets;
}

const std::array<Item, kItemCount>& Items() {
  return kItems;
}

Size StampSize(const Item& item) {
  const int cut = item.set == kTsrOriginal ? 1 : 0;
  return {item.stored.width - cut, item.stored.height - cut};
}

const Item* FindItem(std::string_view control) {
  const auto* found = std::find_if(kItems.begin(), kItems.end(),
                                   [&](const Item& item) { return item.control == control; });
  return found == kItems.end() ? nullptr : found;
}

}  // namespace morvane
