"""Saint-Venant torsion and warping of a plane section by finite elements.

A mesh of curved triangles of six nodes is solved for the warping function. All figures are in the
mesh's unit of length; axes are z to the right and y upwards, through the centroid."""
from dataclasses import dataclass

import numpy as np
from scipy.sparse import coo_matrix
from scipy.sparse.linalg import spsolve

# Points and weights that integrate polynomials of degree four over a triangle exactly.
A1, A2 = 0.445948490915965, 0.091576213509771
POINTS = [(A1, A1), (1 - 2 * A1, A1), (A1, 1 - 2 * A1), (A2, A2), (1 - 2 * A2, A2), (A2, 1 - 2 * A2)]
WEIGHTS = [0.1116907948390055] * 3 + [0.0549758718276610] * 3


@dataclass
class Properties:
    area: float
    major: float  # second moment of area about the z axis
    minor: float  # and about the y axis
    torsion: float
    warping: float  # about the shear center
    shear_z: float  # shear center from the centroid, to the right
    shear_y: float  # upwards
    radius: float  # polar radius of gyration, for what is measured against the section's size


def shapes(r, s):
    """The six shape functions and their derivatives at a point of the reference triangle."""
    t = 1 - r - s
    values = np.array([t * (2 * t - 1), r * (2 * r - 1), s * (2 * s - 1), 4 * r * t, 4 * r * s, 4 * s * t])
    by_r = np.array([1 - 4 * t, 4 * r - 1, 0, 4 * (t - r), 4 * s, -4 * s])
    by_s = np.array([1 - 4 * t, 0, 4 * s - 1, -4 * r, 4 * r, 4 * (t - s)])
    return values, by_r, by_s


def integration_points(nodes, triangles):
    """For each point of all triangles: shape functions, their gradients, the share of the area."""
    z, y = nodes[triangles, 0], nodes[triangles, 1]
    for (r, s), weight in zip(POINTS, WEIGHTS):
        values, by_r, by_s = shapes(r, s)
        z_r, z_s, y_r, y_s = z @ by_r, z @ by_s, y @ by_r, y @ by_s
        determinant = z_r * y_s - z_s * y_r  # negative where the triangle is clockwise
        by_z = (np.outer(y_s, by_r) - np.outer(y_r, by_s)) / determinant[:, None]
        by_y = (np.outer(z_r, by_s) - np.outer(z_s, by_r)) / determinant[:, None]
        yield values, by_z, by_y, weight * np.abs(determinant)


def centered(nodes, triangles):
    """The nodes from the centroid, and the area."""
    area, first = 0.0, np.zeros(2)
    for values, _, _, share in integration_points(nodes, triangles):
        area += share.sum()
        first += share @ (np.tensordot(nodes[triangles], values, axes=(1, 0)))
    return nodes - first / area, area


def properties(nodes, triangles):
    nodes, area = centered(nodes, triangles)
    count = len(nodes)
    stiffness = np.zeros((len(triangles), 6, 6))
    load = np.zeros((len(triangles), 6))
    mass = np.zeros((len(triangles), 6, 6))
    for values, by_z, by_y, share in integration_points(nodes, triangles):
        z, y = nodes[triangles, 0] @ values, nodes[triangles, 1] @ values
        stiffness += share[:, None, None] * (by_z[:, :, None] * by_z[:, None, :] + by_y[:, :, None] * by_y[:, None, :])
        load += share[:, None] * (y[:, None] * by_z - z[:, None] * by_y)
        mass += share[:, None, None] * np.outer(values, values)

    rows, columns = np.repeat(triangles, 6, axis=1).ravel(), np.tile(triangles, 6).ravel()
    stiffness = coo_matrix((stiffness.ravel(), (rows, columns)), (count, count)).tocsc()
    mass = coo_matrix((mass.ravel(), (rows, columns)), (count, count)).tocsc()
    forces = np.bincount(triangles.ravel(), load.ravel(), count)
    warp = np.zeros(count)
    warp[1:] = spsolve(stiffness[1:, 1:], forces[1:])  # one node is held: warping is free to a constant

    z, y, ones = nodes[:, 0], nodes[:, 1], np.ones(count)
    warp -= ones @ mass @ warp / area
    about_z, about_y, product = y @ mass @ y, z @ mass @ z, z @ mass @ y
    shear_z, shear_y = np.linalg.solve([[product, -about_y], [about_z, -product]],
                                       [-(z @ mass @ warp), -(y @ mass @ warp)])
    about_center = warp - shear_y * z + shear_z * y
    polar = about_z + about_y
    return Properties(area, about_z, about_y, polar - warp @ forces, about_center @ mass @ about_center,
                      shear_z, shear_y, float(np.sqrt(polar / area)))
