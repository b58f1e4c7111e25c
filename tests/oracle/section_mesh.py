"""A drawn section as a mesh: outlines of lines and arcs from a DXF file, triangles by gmsh."""
import math

import ezdxf
import gmsh
import numpy as np

TRIANGLE_OF_SIX_NODES = 9  # as gmsh counts them
DELAUNAY = 5


def loops_of(path):
    """The outlines of a drawing, each a list of vertices (z, y, bulge) in mm."""
    lines = ezdxf.readfile(path).modelspace().query('POLYLINE[layer=="OUTLINE"]')
    return [[(v.dxf.location.x, v.dxf.location.y, v.dxf.get("bulge", 0)) for v in line.vertices] for line in lines]


def center_of(start, end, bulge):
    """The center of the arc between two points whose bulge is the tangent of a quarter of its angle."""
    chord = np.subtract(end, start)
    return np.add(start, end) / 2 + np.array([-chord[1], chord[0]]) * (1 - bulge ** 2) / (4 * bulge)


def length_of(start, end, bulge):
    chord = math.dist(start, end)
    return chord if bulge == 0 else chord * (1 + bulge ** 2) / (2 * abs(bulge)) * 2 * math.atan(abs(bulge))


def parts_of(start, end, bulge):
    """An edge as it is, an arc of more than a quarter of a circle in halves."""
    if abs(bulge) < math.tan(math.pi / 8) + 1e-9:
        yield start, end, bulge
        return
    chord = np.subtract(end, start)
    middle = tuple(np.add(start, end) / 2 + np.array([chord[1], -chord[0]]) * bulge / 2)
    half = math.tan(math.atan(bulge) / 2)
    yield from parts_of(start, middle, half)
    yield from parts_of(middle, end, half)


def edges_of(loop):
    for (z, y, bulge), (next_z, next_y, _) in zip(loop, loop[1:] + loop[:1]):
        if math.dist((z, y), (next_z, next_y)) > 1e-9:
            yield from parts_of((z, y), (next_z, next_y), bulge)


def direction_of(start, end, bulge, turn):
    """In which an edge leaves its start (turn -1) or reaches its end (turn 1), an angle."""
    return math.atan2(end[1] - start[1], end[0] - start[0]) + turn * 2 * math.atan(bulge)


def turns_back(loop):
    """Whether an edge runs back along the one before it."""
    edges = list(edges_of(loop))
    return any(math.cos(direction_of(*following, -1) - direction_of(*edge, 1)) < -0.9999
               for edge, following in zip(edges, edges[1:] + edges[:1]))


def thickness_of(loops):
    """That of a long plate of the same area and perimeter."""
    area = sum(area_of(loop) for loop in loops)
    return 2 * abs(area) / sum(length_of(*edge) for loop in loops for edge in edges_of(loop))


def area_of(loop):
    """Counted negative for a clockwise loop, which goes around a hole."""
    area = 0.0
    for start, end, bulge in edges_of(loop):
        area += (start[0] * end[1] - end[0] * start[1]) / 2
        if bulge != 0:
            angle = 4 * math.atan(bulge)
            radius = math.dist(start, end) * (1 + bulge ** 2) / (4 * abs(bulge))
            area += radius ** 2 * (angle - math.sin(angle)) / 2
    return area


def add_loop(loop):
    edges = list(edges_of(loop))
    corners = [gmsh.model.occ.addPoint(*start, 0) for start, _, _ in edges]
    curves = []
    for i, (start, end, bulge) in enumerate(edges):
        first, last = corners[i], corners[(i + 1) % len(corners)]
        if bulge == 0:
            curves.append(gmsh.model.occ.addLine(first, last))
            continue
        middle = gmsh.model.occ.addPoint(*center_of(start, end, bulge), 0)
        if bulge < 0:
            curves.append(-gmsh.model.occ.addCircleArc(last, middle, first))
        else:
            curves.append(gmsh.model.occ.addCircleArc(first, middle, last))
    return gmsh.model.occ.addCurveLoop(curves)


def mesh_of(loops, size):
    """Nodes and triangles of six nodes with edges of about that size."""
    gmsh.initialize()
    try:
        gmsh.option.setNumber("General.Terminal", 0)
        gmsh.option.setNumber("Mesh.MeshSizeMax", size)
        gmsh.option.setNumber("Mesh.MeshSizeFromCurvature", 24)
        gmsh.option.setNumber("Mesh.ElementOrder", 2)
        gmsh.option.setNumber("Mesh.Algorithm", DELAUNAY)
        outer = [loop for loop in loops if area_of(loop) > 0]
        holes = [add_loop(loop) for loop in loops if area_of(loop) < 0]
        if len(outer) != 1:
            raise ValueError(f"{len(outer)} bodies; torsion is solved for one")
        gmsh.model.occ.addPlaneSurface([add_loop(outer[0])] + holes)
        gmsh.model.occ.synchronize()
        gmsh.model.mesh.generate(2)
        tags, coordinates, _ = gmsh.model.mesh.getNodes()
        _, triangles = gmsh.model.mesh.getElementsByType(TRIANGLE_OF_SIX_NODES)
        places = np.zeros(int(max(tags)) + 1, dtype=int)
        used, triangles = np.unique(np.array(triangles, dtype=int), return_inverse=True)
        places[np.array(tags, dtype=int)] = np.arange(len(tags))
        nodes = np.reshape(coordinates, (-1, 3))[places[used], :2]
        return nodes, triangles.reshape(-1, 6)
    finally:
        gmsh.finalize()
