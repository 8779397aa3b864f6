/** The views: what each camera sees, and both from outside, drawn into one canvas. */
import { BufferAttribute, BufferGeometry, CameraHelper, Color, Group, HemisphereLight, Line, LineBasicMaterial, Object3D, PerspectiveCamera, Scene, TextureLoader, Vector3, WebGLRenderer } from 'three';
import { OrbitControls } from 'three/examples/jsm/controls/OrbitControls.js';
import { GLTFLoader } from 'three/examples/jsm/loaders/GLTFLoader.js';
import { PER_FRAME } from '../model/channels.ts';
import { poseAt, verticalField } from '../model/pose.ts';
import type { Shown } from '../model/studio.ts';
import { haze, makeWorld, SKY } from './world.ts';

export type View = 'input' | 'shaken' | 'outside';
/** A part of the canvas, in shares of it from its upper left corner. */
export interface Pane {
    readonly view: View;
    readonly x: number;
    readonly y: number;
    readonly width: number;
    readonly height: number;
    /** What of the pane is drawn, in shares of its width: a wipe shows a part of each. */
    readonly from: number;
    readonly until: number;
}

const INPUT_COLOUR = 0x3a7bd5, SHAKEN_COLOUR = 0xd9480f;
const NEAR = 5, FAR = 100000;
const METRES = 100; // scene units; glTF counts metres

function pathOf(colour: number): Line {
    return new Line(new BufferGeometry(), new LineBasicMaterial({ color: colour }));
}
function layPath(line: Line, numbers: Float64Array): void {
    const count = numbers.length / PER_FRAME;
    const points = new Float32Array(count * 3);
    for (let frame = 0; frame < count; ++frame) {
        const at = frame * PER_FRAME;
        points.set([numbers[at] as number, numbers[at + 1] as number, -(numbers[at + 2] as number)], frame * 3);
    }
    line.geometry.dispose();
    line.geometry = new BufferGeometry();
    line.geometry.setAttribute('position', new BufferAttribute(points, 3));
    line.frustumCulled = false;
}

/** The largest rectangle of a ratio in the middle of another. */
export function fitted(width: number, height: number, ratio: number): { x: number; y: number; width: number; height: number } {
    const fits = Math.min(width, height * ratio);
    return { x: (width - fits) / 2, y: (height - fits / ratio) / 2, width: fits, height: fits / ratio };
}

export class Stage {
    readonly canvas: HTMLCanvasElement;
    private readonly renderer: WebGLRenderer;
    private readonly scene = new Scene();
    private readonly outsideOnly = new Group();
    private readonly cameras: Record<View, PerspectiveCamera>;
    private readonly helpers: CameraHelper[];
    private readonly paths = { input: pathOf(INPUT_COLOUR), shaken: pathOf(SHAKEN_COLOUR) };
    private readonly controls: OrbitControls;
    private world: Object3D | undefined;
    private own: Object3D | undefined;
    private worldOf: Float64Array | undefined;

    /** @throws where the browser has no WebGL. `changed`: somebody turned the view from outside. */
    constructor(canvas: HTMLCanvasElement, changed: () => void) {
        this.canvas = canvas;
        this.renderer = new WebGLRenderer({ canvas, antialias: true, preserveDrawingBuffer: true });
        this.renderer.setClearColor(SKY);
        this.renderer.autoClear = false;
        this.scene.fog = haze();
        this.scene.background = new Color(SKY);
        const camera = () => new PerspectiveCamera(40, 16 / 9, NEAR, FAR);
        this.cameras = { input: camera(), shaken: camera(), outside: camera() };
        this.helpers = [this.frustum('input', INPUT_COLOUR), this.frustum('shaken', SHAKEN_COLOUR)];
        this.outsideOnly.add(...this.helpers, this.paths.input, this.paths.shaken);
        this.scene.add(this.outsideOnly);
        this.controls = new OrbitControls(this.cameras.outside, canvas);
        this.controls.addEventListener('change', changed);
        this.controls.enabled = false;
    }

    private frustum(view: 'input' | 'shaken', colour: number): CameraHelper {
        const helper = new CameraHelper(this.cameras[view]);
        const one = new Color(colour);
        helper.setColors(one, one, one, one, one);
        return helper;
    }

    /** A scene in a .glb file, in metres, in place of the usual one. Its cameras and lights stay out of play. */
    async useScene(bytes: ArrayBuffer): Promise<void> {
        const loader = new GLTFLoader();
        // The page connects to nothing, not even to itself: pictures come as image elements.
        loader.register((parser) => {
            parser.textureLoader = new TextureLoader(parser.options.manager);
            return { name: 'pictures' };
        });
        const { scene } = await loader.parseAsync(bytes, '');
        scene.scale.setScalar(METRES);
        const own = new Group();
        own.add(scene, new HemisphereLight(0xffffff, 0x888888, 3));
        this.own?.removeFromParent();
        this.own = own;
        this.scene.add(own);
        if (this.world !== undefined) this.world.visible = false;
    }
    useUsualScene(): void {
        this.own?.removeFromParent();
        this.own = undefined;
        if (this.world !== undefined) this.world.visible = true;
    }

    show({ move, numbers }: Shown): void {
        if (this.worldOf !== move.numbers) {
            this.worldOf = move.numbers;
            this.world?.removeFromParent();
            this.world = makeWorld(move.numbers);
            this.world.visible = this.own === undefined;
            this.scene.add(this.world);
            layPath(this.paths.input, move.numbers);
            this.lookFromOutside(move.numbers);
        }
        layPath(this.paths.shaken, numbers);
    }

    /** From behind and above, so that the whole path is seen. */
    private lookFromOutside(numbers: Float64Array): void {
        const count = numbers.length / PER_FRAME;
        const middle = new Vector3();
        for (let frame = 0; frame < count; ++frame) middle.add(poseAt(numbers, frame).position.divideScalar(count));
        let reach = 150;
        for (let frame = 0; frame < count; ++frame) reach = Math.max(reach, poseAt(numbers, frame).position.distanceTo(middle));
        const back = new Vector3(0.6, 0.7, 1).applyAxisAngle(new Vector3(0, 1, 0), numbers[3] ?? 0).multiplyScalar(2.2 * reach);
        this.cameras.outside.position.copy(middle).add(back);
        this.controls.target.copy(middle);
        this.controls.update();
    }

    private aim(view: 'input' | 'shaken', numbers: Float64Array, frame: number, filmBack: number, ratio: number): void {
        const camera = this.cameras[view], pose = poseAt(numbers, frame);
        camera.position.copy(pose.position);
        camera.quaternion.copy(pose.rotation);
        camera.fov = verticalField(pose.focalLength, filmBack, ratio);
        camera.aspect = ratio;
        camera.updateProjectionMatrix();
        camera.updateMatrixWorld();
    }

    /** Draws the panes at a frame counted from the move's first. `subFrame` stands for the shaken camera of that frame. */
    draw(shown: Shown, frame: number, panes: readonly Pane[], ratio: number, subFrame?: Float64Array): void {
        const { move, numbers } = shown;
        const filmBack = move.info.apertureWidth;
        this.aim('input', move.numbers, frame, filmBack, ratio);
        this.aim('shaken', subFrame ?? numbers, subFrame === undefined ? frame : 0, filmBack, ratio);
        const { width, height } = this.canvas;
        this.renderer.setScissorTest(true);
        this.renderer.setScissor(0, 0, width, height);
        this.renderer.setViewport(0, 0, width, height);
        this.renderer.setClearColor(0x000000, 0);
        this.renderer.clear();
        for (const pane of panes) this.drawPane(pane, ratio);
    }

    private drawPane(pane: Pane, ratio: number): void {
        const { width, height } = this.canvas;
        const whole = { x: pane.x * width, y: pane.y * height, width: pane.width * width, height: pane.height * height };
        const isOutside = pane.view === 'outside';
        const inner = isOutside ? { x: 0, y: 0, width: whole.width, height: whole.height } : fitted(whole.width, whole.height, ratio);
        const left = whole.x + inner.x, bottom = height - (whole.y + inner.y + inner.height);
        this.renderer.setViewport(left, bottom, inner.width, inner.height);
        this.renderer.setScissor(left + inner.width * pane.from, bottom, inner.width * (pane.until - pane.from), inner.height);
        const camera = this.cameras[pane.view];
        if (isOutside) {
            camera.aspect = inner.width / Math.max(1, inner.height);
            camera.updateProjectionMatrix();
            // The frusta reach as far as is of use to see.
            for (const view of ['input', 'shaken'] as const) {
                this.cameras[view].far = 300;
                this.cameras[view].updateProjectionMatrix();
            }
            for (const helper of this.helpers) helper.update();
        }
        this.outsideOnly.visible = isOutside;
        this.renderer.render(this.scene, camera);
        for (const view of ['input', 'shaken'] as const) {
            this.cameras[view].far = FAR;
            this.cameras[view].updateProjectionMatrix();
        }
    }

    set turns(on: boolean) {
        this.controls.enabled = on;
    }
    /** The size in the canvas's own pixels. */
    resize(width: number, height: number): void {
        if (this.canvas.width === width && this.canvas.height === height) return;
        this.renderer.setPixelRatio(1);
        this.renderer.setSize(width, height, false);
    }
    dispose(): void {
        this.controls.dispose();
        this.renderer.dispose();
    }
}
