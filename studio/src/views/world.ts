/** What the cameras look at, as in the program's previews: a ground with lines every metre, posts, boxes and figures of human scale
 * around the camera's first place, and houses at 150 to 400 metres. Scene units are centimetres. */
import { BoxGeometry, Color, Fog, Group, HemisphereLight, InstancedMesh, LineBasicMaterial, LineSegments, Matrix4, MeshLambertMaterial, BufferGeometry, Float32BufferAttribute, DirectionalLight, Mesh, PlaneGeometry, MeshBasicMaterial } from 'three';
import { PER_FRAME } from '../model/channels.ts';

const EYE_HEIGHT = 160, LOWEST = 30;
const POST = 0xd94d33, WOOD = 0xa8855c, FIGURE = 0x335c8c, SKIN = 0xdbad8c, HOUSE = 0x9ea6b3;
export const SKY = 0xbfd4e6;

/** Numbers that look random and are always the same: the fractional part of multiples of the golden ratio. */
const scatter = (i: number): number => (i * 0.6180339887498949) % 1;

interface Box {
    /** Of the camera's first place, in scene units; `bottom` above the ground. */
    readonly right: number;
    readonly ahead: number;
    readonly bottom: number;
    readonly size: readonly [number, number, number];
    readonly colour: number;
}
const box = (right: number, ahead: number, bottom: number, width: number, height: number, depth: number, colour: number): Box =>
    ({ right, ahead, bottom, size: [width, height, depth], colour });
const figure = (right: number, ahead: number): Box[] =>
    [box(right, ahead, 0, 42, 150, 26, FIGURE), box(right, ahead, 150, 20, 26, 22, SKIN)];

function boxes(): Box[] {
    const all: Box[] = [];
    for (let i = -5; i < 24; ++i) all.push(box(-260, 250 + 300 * i, 0, 12, 110, 12, POST));
    all.push(...figure(70, 520), ...figure(230, 900), ...figure(-60, 1400));
    all.push(box(200, 480, 0, 80, 60, 60, WOOD), box(210, 480, 60, 45, 45, 45, WOOD), box(420, 1100, 0, 180, 140, 420, FIGURE),
        box(-130, 800, 0, 60, 75, 60, WOOD));
    for (let i = 0; i < 40; ++i) {
        const around = 2 * Math.PI * scatter(3 * i), distance = 1600 + 5000 * scatter(5 * i + 1);
        const [right, ahead] = [distance * Math.sin(around), distance * Math.cos(around)];
        const size = 60 + 160 * scatter(7 * i + 2);
        all.push(...(i % 4 === 0 ? figure(right, ahead) : [box(right, ahead, 0, size, size * 0.8, size, WOOD)]));
    }
    for (let i = 0; i < 72; ++i) {
        const around = (2 * Math.PI * i) / 72, distance = 15000 + 25000 * scatter(2 * i + 1);
        const width = 900 + 1500 * scatter(11 * i), height = 900 + 5200 * scatter(13 * i) * scatter(17 * i + 3);
        all.push(box(distance * Math.sin(around), distance * Math.cos(around), 0, width, height, width, HOUSE));
    }
    return all;
}

function grid(): LineSegments {
    const points: number[] = [];
    const reach = 5000;
    for (let at = -reach; at <= reach; at += 100) points.push(at, 0, -reach, at, 0, reach, -reach, 0, at, reach, 0, at);
    const geometry = new BufferGeometry();
    geometry.setAttribute('position', new Float32BufferAttribute(points, 3));
    return new LineSegments(geometry, new LineBasicMaterial({ color: 0x6f7a6a }));
}

/** Where the ground is: at height 0, or 160 centimetres below a camera that comes closer to it than 30. */
function groundHeight(numbers: Float64Array): number {
    let lowest = Infinity;
    for (let at = 1; at < numbers.length; at += PER_FRAME) lowest = Math.min(lowest, numbers[at] as number);
    return lowest >= LOWEST ? 0 : lowest - EYE_HEIGHT;
}

/** For the input camera of a move. */
export function makeWorld(numbers: Float64Array): Group {
    const world = new Group();
    const parts = boxes();
    const mesh = new InstancedMesh(new BoxGeometry(1, 1, 1), new MeshLambertMaterial(), parts.length);
    parts.forEach(({ right, ahead, bottom, size, colour }, index) => {
        mesh.setMatrixAt(index, new Matrix4().makeScale(...(size as [number, number, number])).setPosition(right, bottom + size[1] / 2, -ahead));
        mesh.setColorAt(index, new Color(colour));
    });
    mesh.frustumCulled = false;
    const ground = new Mesh(new PlaneGeometry(200000, 200000).rotateX(-Math.PI / 2), new MeshBasicMaterial({ color: 0x8b9a7f }));
    ground.position.y = -2;
    const sun = new DirectionalLight(0xffffff, 1.6);
    sun.position.set(-400, 900, 600);
    world.add(mesh, ground, grid(), sun, new HemisphereLight(SKY, 0x8b9a7f, 1.6));
    world.position.set(numbers[0] ?? 0, groundHeight(numbers), -(numbers[2] ?? 0));
    world.rotation.y = numbers[3] ?? 0;
    return world;
}

export const haze = (): Fog => new Fog(SKY, 8000, 60000);
