/** A look on a move: what the engine plays. Only what differs from the look before is told to it. */
import type { Move, Parameter, Shot, Tremolux } from 'tremolux';
import { Interpolation, Kind } from 'tremolux';
import { fromBase64 } from '../model/base64.ts';
import type { Base, Ease, Jolt, Key, Look } from '../model/look.ts';

const INTERPOLATIONS: Record<Ease, number> = {
    smooth: Interpolation.SMOOTH, linear: Interpolation.LINEAR, hold: Interpolation.HOLD,
};
const POSITION_JOLTS = 'Jolt Pos Intensity', ROTATION_JOLTS = 'Jolt Rot Intensity';

const same = (a: unknown, b: unknown) => JSON.stringify(a) === JSON.stringify(b);
const holdsNumber = ({ kind }: Parameter) => kind === Kind.NUMBER || kind === Kind.SWITCH || kind === Kind.TIME;

export class PlayedLook {
    /** Of the engine's table, those with a number, in its order. */
    readonly parameters: readonly Parameter[];
    private readonly engine: Tremolux;
    private readonly move: Move;
    private readonly positionJolts: number;
    private readonly rotationJolts: number;
    private shot: Shot | undefined;
    private look: Look | undefined;
    /** What the shot's frames are of. */
    private lastPlayed: Look | undefined;
    /** What each parameter has without the look's settings. */
    private base = new Map<number, number>();

    constructor(engine: Tremolux, move: Move) {
        this.engine = engine;
        this.move = move;
        const all = engine.parameters();
        const named = (label: string) => {
            const parameter = all.find((one) => one.label === label);
            if (parameter === undefined) throw new Error(`found no parameter '${label}'`);
            return parameter.id;
        };
        this.parameters = all.filter(holdsNumber);
        this.positionJolts = named(POSITION_JOLTS);
        this.rotationJolts = named(ROTATION_JOLTS);
    }

    free(): void {
        this.shot?.free();
        this.shot = undefined;
        this.look = undefined;
        this.lastPlayed = undefined;
    }

    /** Brings the engine to a look and plays all frames, unless they are what it played last; when it throws, the next look starts
     * afresh. */
    play(look: Look): Shot {
        const shot = this.brought(look);
        if (!same(this.lastPlayed, look)) shot.play();
        this.lastPlayed = look;
        return shot;
    }

    /** The engine with a look, not played. */
    brought(look: Look): Shot {
        try {
            const shot = this.onBase(look);
            this.bringSettings(shot, look);
            this.bringJolts(shot, look);
            this.bringKeys(shot, look);
            this.direct(shot, look);
            this.look = look;
            return shot;
        } catch (error) {
            this.free();
            throw error;
        }
    }

    baseValues(): Map<number, number> {
        return this.base;
    }

    /** What the look would be after a button of the panel: settings that differ from the base. */
    pressed(look: Look, button: number): Record<number, number> {
        const shot = this.brought(look);
        shot.press(button);
        const settings: Record<number, number> = {};
        for (const { id } of this.parameters) {
            const value = shot.get(id);
            if (look.keys[id] === undefined && value !== this.base.get(id)) settings[id] = value;
        }
        this.free();
        return settings;
    }

    private onBase(look: Look): Shot {
        const before = this.look;
        const stays = this.shot !== undefined && before !== undefined && same(before.base, look.base) &&
            before.keepHertz === look.keepHertz && same(before.target, look.target) &&
            same(before.focusObject, look.focusObject) && !this.joltsMeetKeys(before, look);
        if (stays && this.shot !== undefined) return this.shot;
        this.free();
        const shot = new this.engine.Shot(this.move);
        this.shot = shot;
        this.applyBase(shot, look.base, look.keepHertz);
        this.aim(shot, look);
        this.base = new Map(this.parameters.map(({ id }) => [id, shot.get(id)]));
        return shot;
    }

    /** Jolts of many strengths are keys of the engine's, too: where they and the look's own lie on one track, it begins afresh. */
    private joltsMeetKeys(before: Look, look: Look): boolean {
        const keys = ({ keys: of }: Look) => [of[this.positionJolts], of[this.rotationJolts]];
        const hasBoth = (of: Look) => of.jolts.length > 0 && keys(of).some((list) => list !== undefined);
        return (hasBoth(before) || hasBoth(look)) && !same([before.jolts, keys(before)], [look.jolts, keys(look)]);
    }

    private applyBase(shot: Shot, base: Base, keepHertz: boolean): void {
        switch (base.kind) {
            case 'defaults': return;
            case 'file': return shot.applyPresetBytes(fromBase64(base.data));
            case 'preset': shot.applyPreset(base.name); break;
            case 'mix': shot.applyMix(base.name, base.second, base.share); break;
        }
        const rates = new Set([base.name, base.kind === 'mix' ? base.second : base.name].map((name) => this.madeFor(name)));
        const madeFor = rates.size === 1 ? [...rates][0] ?? 0 : 0;
        const { rateNumerator, rateDenominator } = this.move.info;
        if (keepHertz && madeFor > 0 && madeFor !== rateNumerator / rateDenominator) shot.keepHertz(madeFor);
    }

    /** Frames a second; 0: not known. */
    private madeFor(name: string): number {
        return this.engine.presets().find((preset) => `${preset.category}/${preset.name}` === name)?.madeFor ?? 0;
    }

    private aim(shot: Shot, look: Look): void {
        const aimed = (point: Look['target'], use: (points: Move) => void) => {
            if (point === null) return;
            const { rateNumerator, rateDenominator } = this.move.info;
            const points = this.engine.Move.fromNumbers({ rateNumerator, rateDenominator }, [...point, 0, 0, 0, 36, 100]);
            use(points);
            points.free();
        };
        aimed(look.target, (points) => shot.setTarget(points));
        aimed(look.focusObject, (points) => shot.setFocusObject(points));
    }

    private bringSettings(shot: Shot, look: Look): void {
        const before = this.look?.settings ?? {};
        for (const { id } of this.parameters) {
            const value = look.settings[id];
            if (before[id] === value) continue;
            shot.set(id, value ?? (this.base.get(id) as number));
        }
    }

    private bringJolts(shot: Shot, look: Look): void {
        const intensity = (of: Look, id: number) => of.settings[id] ?? (this.base.get(id) as number);
        const events = (jolts: readonly Jolt[]) => jolts.map(({ frame, strength }): [number, number] => [frame, strength]);
        const before = this.look;
        const told = (of: Look) => [of.jolts, intensity(of, this.positionJolts), intensity(of, this.rotationJolts)];
        if (before === undefined ? look.jolts.length === 0 : same(told(before), told(look)) || !(before.jolts.length || look.jolts.length))
            return;
        shot.jolts(events(look.jolts), intensity(look, this.positionJolts), intensity(look, this.rotationJolts));
    }

    private bringKeys(shot: Shot, look: Look): void {
        const before = this.look?.keys ?? {};
        const ids = new Set([...Object.keys(before), ...Object.keys(look.keys)].map(Number));
        for (const id of ids) {
            const old = before[id] ?? [], wanted = look.keys[id] ?? [];
            if (same(old, wanted)) continue;
            const isWanted = (key: Key) => wanted.some(({ frame }) => frame === key.frame);
            for (const key of wanted) shot.key(id, key.frame, key.value, INTERPOLATIONS[key.ease]);
            for (const key of old) if (!isWanted(key)) shot.unkey(id, key.frame);
            if (wanted.length === 0) shot.set(id, look.settings[id] ?? (this.base.get(id) as number));
        }
    }

    private direct(shot: Shot, look: Look): void {
        const { from, until, fadeIn, fadeOut, mix, position, rotation, lens, lensAware } = look.range;
        const { firstFrame, frameCount } = this.move.info;
        shot.direct({
            from: from ?? firstFrame, until: until ?? firstFrame + frameCount - 1, fadeIn, fadeOut, mix,
            position: Number(position), rotation: Number(rotation), lens: Number(lens), lensAware,
            focalLength: this.move.numbers()[6] ?? 36,
        });
    }
}
