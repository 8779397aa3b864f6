/** The command line that makes the same shot with the program. */
import type { Look } from './look.ts';
import { WHOLE_RANGE } from './look.ts';

export interface CommandFacts {
    readonly moveName: string;
    readonly output: string;
    /** Parameters that hold a switch. */
    readonly switches: ReadonlySet<number>;
    readonly times: ReadonlySet<number>;
    readonly angles: ReadonlySet<number>;
}

const quoted = (text: string): string =>
    /^[\w@%+=:,./-]+$/.test(text) ? text : `'${text.replaceAll("'", `'\\''`)}'`;
/** A name that begins like an option is none. */
const fileWord = (name: string): string => (name.startsWith('-') ? `./${name}` : name);

/** As the option takes it; fractions, degrees and seconds with all their digits. */
function valueText(parameter: number, value: number, { switches, times, angles }: CommandFacts): string {
    if (switches.has(parameter)) return value === 0 ? 'off' : 'on';
    if (times.has(parameter)) return `${value}s`;
    return angles.has(parameter) ? `${(value * 180) / Math.PI}deg` : String(value);
}

function baseWords({ base, keepHertz }: Look): string[] {
    const hertz = keepHertz || base.kind === 'defaults' || base.kind === 'file' ? [] : ['--no-keep-hz'];
    switch (base.kind) {
        case 'defaults': return [];
        case 'preset': return ['--preset', base.name, ...hertz];
        case 'mix': return ['--preset', `${base.name}=${1 - base.share}`, '--preset', `${base.second}=${base.share}`, ...hertz];
        case 'file': return ['--preset', fileWord(base.name)];
    }
}

function rangeWords({ range }: Look): string[] {
    const only = (['position', 'rotation', 'lens'] as const).filter((channel) => range[channel]);
    return [
        ...(range.from === null ? [] : ['--from', String(range.from)]),
        ...(range.until === null ? [] : ['--until', String(range.until)]),
        ...(range.fadeIn === 0 ? [] : ['--fade-in', String(range.fadeIn)]),
        ...(range.fadeOut === 0 ? [] : ['--fade-out', String(range.fadeOut)]),
        // Without a channel nothing is shaken.
        ...(only.length === 0 ? ['--mix', '0'] : range.mix === WHOLE_RANGE.mix ? [] : ['--mix', String(range.mix)]),
        ...(only.length === 0 || only.length === 3 ? [] : ['--only', only.join(',')]),
        // A share of 1 would be a focal length.
        ...(range.lensAware === 0 ? [] : [range.lensAware === 1 ? '--lens-aware' : `--lens-aware=${range.lensAware}`]),
    ];
}

/** The file of events that `--jolts-from` reads, where the look has jolts. */
export const joltsFile = (moveName: string): string => `${moveName.replace(/\.[^.]*$/, '')}-jolts.csv`;
export const joltsTable = ({ jolts }: Look): string =>
    `frame,strength\n${jolts.map(({ frame, strength }) => `${frame},${strength}\n`).join('')}`;

export function commandLine(look: Look, facts: CommandFacts): string {
    const settings = Object.entries(look.settings).flatMap(([id, value]) =>
        ['--set', `${id}=${valueText(Number(id), value, facts)}`]);
    const keys = Object.entries(look.keys).flatMap(([id, list]) => [
        '--key',
        `${id}${list.map(({ frame, value, ease }, index) =>
            `${index === 0 ? '@' : ','}${frame}=${valueText(Number(id), value, facts)}${facts.switches.has(Number(id)) ? '' : ` ${ease}`}`).join('')}`,
    ]);
    const points = [
        ...(look.target === null ? [] : [`--target=${look.target.join(',')}`]),
        ...(look.focusObject === null ? [] : [`--focus-object=${look.focusObject.join(',')}`]),
    ];
    const jolts = look.jolts.length === 0 ? [] : ['--jolts-from', fileWord(joltsFile(facts.moveName))];
    return ['tremolux', 'shake', fileWord(facts.moveName), ...baseWords(look), ...settings, ...keys, ...points, ...jolts, ...rangeWords(look), '-o',
        fileWord(facts.output)].map(quoted).join(' ');
}
