// Reads profiles with web-ifc, an independent reader:
//   node read_ifc.mjs FILE.ifc
// and prints a line each: kind and name, area and extent of the outline or the sizes that the kind has,
// and area and moments of inertia of its properties, all with four digits. Exit status 77: web-ifc is
// not installed.
import { readFileSync } from 'node:fs';
import { createRequire } from 'node:module';

function reader() {
  try {
    return createRequire(import.meta.url)('web-ifc');
  } catch {
    console.error('web-ifc is not installed where NODE_PATH tells');
    process.exit(77);
  }
}

const ifc = reader();

/** Area between an arc through three points and its chord, positive to the right of the chord. */
function segmentArea([ax, ay], [bx, by], [cx, cy]) {
  const chord = Math.hypot(cx - ax, cy - ay);
  const height = ((cx - ax) * (by - ay) - (cy - ay) * (bx - ax)) / chord;
  const half = chord / 2;
  const radius = (half * half + height * height) / (2 * Math.abs(height));
  const sweep = 4 * Math.atan2(Math.abs(height), half);
  return (-Math.sign(height) * (radius * radius * (sweep - Math.sin(sweep)))) / 2;
}

function areaOf(points, segments) {
  let area = 0;
  for (const segment of segments) {
    const ends = segment.value.map((index) => points[(index.value ?? index) - 1]);
    const [from, to] = [ends[0], ends[ends.length - 1]];
    area += (from[0] * to[1] - to[0] * from[1]) / 2;
    if (ends.length === 3) area += segmentArea(...ends);
  }
  return area;
}

const rounded = (figure) => Number(figure.toPrecision(4));

const api = new ifc.IfcAPI();
await api.Init();
const model = api.OpenModel(readFileSync(process.argv[2]));

/** The points of a curve, and the area inside, which is negative of a hole. */
function curveOf(handle) {
  const curve = api.GetLine(model, handle.value);
  const list = api.GetLine(model, curve.Points.value).CoordList;
  const points = list.map((at) => at.map((ordinate) => ordinate.value ?? ordinate));
  return [points, areaOf(points, curve.Segments)];
}

const ids = api.GetLineIDsWithType(model, ifc.IFCPROFILEPROPERTIES);
for (let i = 0; i < ids.size(); ++i) {
  const set = api.GetLine(model, ids.get(i));
  set.Properties = set.Properties.map((each) => api.GetLine(model, each.value));
  const profile = api.GetLine(model, set.ProfileDefinition.value);
  const value = (name) =>
    set.Properties.find((each) => each.Name.value === name)?.NominalValue.value ?? NaN;
  const figures = ['CrossSectionArea', 'MomentOfInertiaY', 'MomentOfInertiaZ'].map(value);
  const sizes = ['XDim', 'YDim', 'OverallWidth', 'OverallDepth', 'Depth', 'Width'];
  let shape = sizes.filter((size) => profile[size]).map((size) => profile[size].value);
  if (profile.OuterCurve) {
    const [points, area] = curveOf(profile.OuterCurve);
    const extent = [0, 1].map((axis) => {
      const ordinates = points.map((at) => at[axis]);
      return Math.max(...ordinates) - Math.min(...ordinates);
    });
    const holes = (profile.InnerCurves ?? []).map((curve) => curveOf(curve)[1]);
    shape = [holes.reduce((sum, hole) => sum + hole, area), ...extent];
  }
  const told = [shape, figures].map((each) => each.map(rounded).join(' '));
  const text = `${profile.constructor.name} ${profile.ProfileName.value}: ${told.join(' | ')}`;
  console.log(text.replace(':  |', ': |'));
}
api.CloseModel(model);
